// Writes each kind of file that the program keeps in processes that are killed at random moments, and looks at what is
// there then: the old file or the new one, whole. Of a journal, all that was appended.
// SPDX-License-Identifier: MIT
//
//   killed_saves ROUNDS [ROW...]
//
// Works in a folder of its own below TMPDIR, so that any file system can be tried. Ends with status 1 after a loss.
#include <signal.h>
#include <sys/mman.h>
#include <sys/wait.h>
#include <unistd.h>

#include <QDateTime>
#include <QDirIterator>
#include <QElapsedTimer>
#include <QGuiApplication>
#include <QTemporaryDir>
#include <cstdio>
#include <random>

#include "dialogs/browse/thumbnail_cache.h"
#include "document/journal_file.h"
#include "document/recipe.h"
#include "output/pdf/pdf_export.h"
#include "pictures/picture_file.h"
#include "platform/atomic_file.h"
#include "platform/error.h"
#include "platform/registry_file.h"

namespace {

using namespace kelu;

std::mt19937 dice(1);
volatile int* appended = nullptr;  // shared with the children: lines of a journal that were written whole

/// Two of everything: the old one and the new one. Made before the first child, which inherits them.
struct Contents {
    QImage pictures[2];
    QByteArray recipes[2];
};
Contents contents;

QImage Noise(unsigned seed) {
    QImage picture(640, 480, QImage::Format_RGB32);
    std::mt19937 colors(seed);
    for (int y = 0; y < picture.height(); ++y)
        for (int x = 0; x < picture.width(); ++x) picture.setPixel(x, y, 0xff000000u | (colors() & 0x3f3f3fu));
    return picture;
}

QByteArray Lines(int which) {
    QByteArray lines = HeaderLine(false) + OpenLine({640, 480}, false);
    for (int i = 0; i < 20'000; ++i) lines += "stroke " + QByteArray::number(i * 7 % 640 + which) + " 20\n";
    return lines;
}

void WriteSettings(const QString& path, int which) {
    const bool kept = RegistryFile(path).Apply([which](RegistryTree& tree) {
        const QString key = QStringLiteral("HKEY_CURRENT_USER\\SOFTWARE\\Killed");
        tree.MakeKey(key);
        for (int i = 0; i < 300; ++i)
            tree.Set(key, {QString::number(i), kRegistryString, QByteArray(40, which ? 'n' : 'o')});
        return true;
    });
    if (!kept) throw Error(kFileError, path + QStringLiteral(": not kept"));
}

void WriteAsPicture(const QString& path, int which) { WritePicture(contents.pictures[which], path); }

void WriteAsRecipe(const QString& path, int which) {
    AtomicFile file(path);
    file.Write(contents.recipes[which]);
    file.Commit();
}

/// The photograph of the thumbnail becomes another one.
void WriteThumbnail(const QString& path, int which) {
    const QString folder = QFileInfo(path).path(), photo = folder + QStringLiteral("/photo.bmp");
    // Of its own: all children would ask for the same random names.
    const QString temporary = folder + u'/' + QString::number(::getpid());
    QDir().mkdir(temporary);
    qputenv("TEMP", QFile::encodeName(temporary));
    const QByteArray source = QFile::encodeName(photo + QString::number(which)), link = QFile::encodeName(photo);
    ::unlink(link.constData());
    if (::link(source.constData(), link.constData()) != 0) throw Error(kFileError, qt_error_string(errno));
    ThumbnailCache(folder + QStringLiteral("/cache")).Thumbnail(photo);
}

struct Row {
    const char* file;
    void (*write)(const QString& path, int which);
};

constexpr Row kRows[] = {
    {"picture.bmp", WriteAsPicture},
    {"picture.png", WriteAsPicture},
    {"picture.gif", WriteAsPicture},
    {"picture.jpg", WriteAsPicture},
    {"picture.tif", WriteAsPicture},
    {"picture.webp", WriteAsPicture},
    {"page.pdf", [](const QString& path, int which) { WritePdf(contents.pictures[which], path, KeluPdfProperties()); }},
    {"recipe.kelu", WriteAsRecipe},
    {"settings.reg", WriteSettings},
    {"thumbnail.png", WriteThumbnail},
};

/// Without the time that a PDF file tells.
QByteArray BytesOf(const QString& path) {
    QFile file(path);
    QByteArray bytes = file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    if (const qsizetype date = bytes.indexOf("(D:20"); date > 0) bytes.remove(date + 3, 14);
    return bytes;
}

/// Whether the work was done before the kill; `after` microseconds, < 0: never.
template <typename Work>
bool InChild(Work&& work, double after) {
    const pid_t child = ::fork();
    if (child == 0) {
        try {
            work();
        } catch (const std::exception& error) {
            std::fprintf(stderr, "%s\n", error.what());
            ::_exit(1);
        }
        ::_exit(0);
    }
    if (after >= 0) {
        ::usleep(static_cast<useconds_t>(after));
        ::kill(child, SIGKILL);
    }
    int status = 0;
    ::waitpid(child, &status, 0);
    if (WIFEXITED(status) && WEXITSTATUS(status) != 0) std::exit(2);
    return WIFEXITED(status);
}

QStringList Entries(const QString& folder) {
    QStringList names;
    QDirIterator each(folder, QDir::Files | QDir::Hidden | QDir::System, QDirIterator::Subdirectories);
    while (each.hasNext()) names += each.next().mid(folder.size() + 1);
    return names;
}

double Random() { return std::uniform_real_distribution(0.0, 1.0)(dice); }

/// Where the thumbnail lies is the cache's own business.
QString FileOf(const Row& row, const QTemporaryDir& folder) {
    if (row.write != WriteThumbnail) return folder.filePath(QString::fromLatin1(row.file));
    QDirIterator each(folder.filePath(QStringLiteral("cache")), {QStringLiteral("*.png")}, QDir::Files,
                      QDirIterator::Subdirectories);
    return each.hasNext() ? each.next() : QString();
}

void Prepare(const Row& row, const QTemporaryDir& folder) {
    if (row.write != WriteThumbnail) return;
    for (const int which : {0, 1}) {
        const QString photo = folder.filePath(QStringLiteral("photo.bmp"));
        contents.pictures[which].save(photo, "bmp");
        QFile::rename(photo, photo + QString::number(which));
        QFile file(photo + QString::number(which));
        file.open(QIODevice::ReadWrite);
        file.setFileTime(QDateTime::currentDateTime().addSecs(-1000 - which), QFileDevice::FileModificationTime);
    }
}

bool KillWriters(const Row& row, int rounds) {
    const QTemporaryDir folder;
    Prepare(row, folder);
    const QString path = folder.filePath(QString::fromLatin1(row.file));
    const auto write = [&](int which, double after) { return InChild([&] { row.write(path, which); }, after); };
    QByteArray whole[2];
    QElapsedTimer clock;
    clock.start();
    for (const int which : {1, 0}) {
        write(which, -1);
        whole[which] = BytesOf(FileOf(row, folder));
    }
    double longest = static_cast<double>(clock.nsecsElapsed()) / 2000;  // the machine may be busy: it follows
    const QStringList before = Entries(folder.path());
    int now = 0, ended = 0, exchanged = 0, left = 0, lost = whole[0].isEmpty() || whole[0] == whole[1];
    for (int round = 0; round < rounds; ++round) {
        const bool finished = write(1 - now, longest * Random());
        longest *= finished ? 0.96 : 1.01;
        const QByteArray bytes = BytesOf(FileOf(row, folder));
        ended += finished;
        left += Entries(folder.path()).size() > before.size();
        if (bytes == whole[1 - now])
            now = 1 - now, ++exchanged;
        else if (finished || bytes != whole[now])
            ++lost;
    }
    write(1 - now, -1);
    const bool clean = Entries(folder.path()) == before;
    std::printf("%-14s %d rounds: %d times the old file, %d the new one (%d were done before), %d neither; ", row.file,
                rounds, rounds - exchanged - lost, exchanged, ended, lost);
    std::printf("a rest stood beside it %d times, %s\n", left, clean ? "no more after a save" : "STILL AFTER A SAVE");
    std::fflush(stdout);
    return lost == 0 && clean;
}

bool KillJournals(int rounds) {
    constexpr int kLinesBefore = 4;  // what the file is, the picture, the paint, the brush
    int lost = 0, most = 0;
    for (int round = 0; round < rounds; ++round) {
        const QTemporaryDir folder;
        *appended = 0;
        const auto work = [&] {
            JournalFile journal(folder.path());
            journal.Append(OpenLine({640, 480}, false) + "apply 32\nbrush 25\n");
            for (int i = 1;; ++i) {
                journal.Append("stroke " + QByteArray::number(i % 640) + ",20\n");
                *appended = i;
            }
        };
        InChild(work, 30'000 * Random());
        const QStringList found = QDir(folder.path()).entryList({QStringLiteral("*.journal")});
        const int due = *appended;
        most = std::max(most, due);
        if (found.isEmpty()) {
            lost += due > 0;
            continue;
        }
        const QByteArray bytes = BytesOf(folder.filePath(found.first()));
        const Recipe read = ReadRecipeText(bytes);
        const auto whole = std::max<qsizetype>(bytes.left(read.certainBytes).count('\n') - kLinesBefore, 0);
        lost += whole < due || whole > due + 1 || bytes.mid(read.certainBytes).count('\n') > 0;
    }
    std::printf("journal        %d rounds of up to %d lines: %d lost what was appended\n", rounds, most, lost);
    return lost == 0;
}

}  // namespace

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QGuiApplication application(argc, argv);
    const QStringList words = QCoreApplication::arguments().mid(1);
    const int rounds = words.value(0).toInt();
    const auto wanted = [&](const char* name) { return words.size() < 2 || words.contains(QLatin1String(name)); };
    contents = {{Noise(1), Noise(2)}, {Lines(0), Lines(1)}};
    appended =
        static_cast<int*>(::mmap(nullptr, sizeof(int), PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0));
    bool well = true;
    for (const Row& row : kRows)
        if (wanted(row.file)) well &= KillWriters(row, rounds);
    if (wanted("journal")) well &= KillJournals(rounds);
    return well ? 0 : 1;
}
