// kelu_make_help TEXTS GALLERY OUTPUT: writes all pages of the help and their pictures. Part of the build.
// SPDX-License-Identifier: MIT
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QGuiApplication>
#include <cstdio>

#include "help/help_pictures.h"
#include "help/help_writer.h"
#include "platform/error.h"
#include "platform/language.h"

namespace {

using namespace kelu;

QByteArray Read(const QString& path) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) throw Error(kFileError, path + QStringLiteral(": ") + file.errorString());
    return file.readAll();
}

void Write(const QString& path, const QByteArray& bytes) {
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size()) {
        throw Error(kFileError, path + QStringLiteral(": ") + file.errorString());
    }
}

void MakeHelp(const QDir& texts, const QDir& gallery, const QDir& output) {
    if (!output.mkpath(".")) throw Error(kFileError, QStringLiteral("cannot make ") + output.path());
    HelpPictures pictures(gallery, output);
    QList<HelpTopic> topics;
    for (const Effect& effect : Catalogue()) {
        const QString stem = QFileInfo(QLatin1String(effect.helpPage)).completeBaseName();
        topics += {&effect, ReadHelpText(texts.filePath(stem + ".txt"), effect), stem};
        pictures.Make(effect, topics.last().text, stem);
    }
    for (const HelpTopic& topic : topics)
        Write(output.filePath(topic.stem + ".html"), EffectPage(topic, topics).toUtf8());
    // page.html, and page_de.html in its place where the window speaks German.
    const auto writeInLanguage = [&](const QString& suffix) {
        Write(output.filePath("index" + suffix), IndexPage(topics).toUtf8());
        for (const QString& plain : texts.entryList({"*" + suffix}, QDir::Files))
            if (suffix.startsWith(u'_') || !plain.contains(u'_'))
                Write(output.filePath(plain), PlainPage(QString::fromUtf8(Read(texts.filePath(plain)))).toUtf8());
    };
    writeInLanguage(".html");
    for (const QString& id : LanguageIds()) {
        UseLanguage(id);
        writeInLanguage(u'_' + LanguageInUse() + ".html");
    }
    Write(output.filePath("kelu.css"), Read(texts.filePath("../kelu.css")));
}

}  // namespace

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QGuiApplication application(argc, argv);
    const QStringList words = QGuiApplication::arguments();
    if (words.size() != 4) {
        std::fputs("usage: kelu_make_help TEXTS GALLERY OUTPUT\n", stderr);
        return 2;
    }
    try {
        MakeHelp(QDir(words[1]), QDir(words[2]), QDir(words[3]));
    } catch (const std::exception& error) {
        std::fprintf(stderr, "kelu_make_help: %s\n", error.what());
        return 1;
    }
    return 0;
}
