// The GIF command of the command line program.
// SPDX-License-Identifier: MIT
#include "cli/gif_commands.h"

#include <QDir>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <cstdio>

#include "pictures/gif/frame_composer.h"
#include "platform/error.h"

namespace kelu {
namespace {

QByteArray ReadFile(const QString& path) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) throw Error(kFileError, file.errorString());
    const QByteArray bytes = file.readAll();
    if (file.error() != QFileDevice::NoError) throw Error(kFileError, file.errorString());
    return bytes;
}

GifStream ReadStream(const QByteArray& bytes) {
    GifStream stream = ParseGifStream(
        {reinterpret_cast<const std::uint8_t*>(bytes.constData()), static_cast<std::size_t>(bytes.size())});
    if (stream.Frames.empty()) throw Error(kInvalidPicture, "no GIF picture in this file");
    return stream;
}

QJsonObject Describe(const GifFrame& frame) {
    return {{"left", frame.Left},
            {"top", frame.Top},
            {"width", frame.Width},
            {"height", frame.Height},
            {"delay_ms", frame.DelayMs},
            {"disposal", frame.Disposal},
            {"transparent_index", frame.HasTransparency ? QJsonValue(frame.TransparentIndex) : QJsonValue()}};
}

QJsonObject Describe(const GifStream& stream) {
    QJsonArray frames;
    for (const GifFrame& frame : stream.Frames) frames.append(Describe(frame));
    return {
        {"width", stream.ScreenWidth}, {"height", stream.ScreenHeight}, {"loops", stream.Loops}, {"frames", frames}};
}

// frame-1.png, or with leading zeros so that the names sort as the frames do.
QString DumpName(int frame, int count) {
    return QString("frame-%1.png").arg(frame, static_cast<int>(QString::number(count).size()), 10, QChar('0'));
}

void DumpFrames(const QByteArray& bytes, const QDir& folder) {
    if (!folder.mkpath(".")) throw Error(kFileError, "cannot make the folder " + folder.path());
    FrameStrip strip;
    if (strip.Load(bytes) == 0) throw Error(kOutOfMemory, "the picture is too large to be composed");
    strip.LoadRest();
    FrameComposer composer(strip);
    for (int frame = 1; frame <= strip.FrameCount(); ++frame) {
        const QString path = folder.filePath(DumpName(frame, strip.FrameCount()));
        const QImage screen = composer.Compose(frame);
        if (screen.isNull()) throw Error(kOutOfMemory, "there is no memory to compose the frames");
        if (!screen.convertToFormat(QImage::Format_ARGB32).save(path, "PNG")) {
            QFile::remove(path);
            throw Error(kFileError, "cannot write " + path);
        }
    }
}

}  // namespace

int GifInfoCommand(const QStringList& arguments) {
    QString path, dumpFolder;
    bool wrong = false;
    for (qsizetype i = 0; i < arguments.size(); ++i) {
        if (arguments[i] == "--dump" && i + 1 < arguments.size() && dumpFolder.isEmpty()) {
            dumpFolder = arguments[++i];
        } else if (!arguments[i].startsWith("--") && path.isEmpty()) {
            path = arguments[i];
        } else {
            wrong = true;
        }
    }
    if (wrong || path.isEmpty()) {
        std::fputs("usage: kelu-cli gif-info FILE [--dump DIR]\n", stderr);
        return 2;
    }
    try {
        const QByteArray bytes = ReadFile(path);
        const QByteArray text = QJsonDocument(Describe(ReadStream(bytes))).toJson();
        if (!dumpFolder.isEmpty()) DumpFrames(bytes, QDir(dumpFolder));
        std::fwrite(text.constData(), 1, static_cast<std::size_t>(text.size()), stdout);
        return 0;
    } catch (const std::exception& error) {
        std::fprintf(stderr, "kelu-cli: %s: %s\n", qPrintable(path), error.what());
        return 1;
    }
}

}  // namespace kelu
