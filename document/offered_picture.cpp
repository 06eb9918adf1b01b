// SPDX-License-Identifier: MIT
#include "document/offered_picture.h"

#include <QCoreApplication>
#include <QDir>
#include <QMimeData>
#include <QUrl>

#include "pictures/picture.h"
#include "pictures/picture_format.h"
#include "platform/atomic_file.h"
#include "platform/error.h"
#include "platform/temporary_folder.h"

namespace kelu {
namespace {

struct Texts {
    Q_DECLARE_TR_FUNCTIONS(kelu::OfferedPicture)
};

QString FirstLocalFile(const QMimeData& data) {
    for (const QUrl& url : data.urls())
        if (url.isLocalFile()) return url.toLocalFile();
    return {};
}

/// Of the types offered the one that loses least and is read; empty: none.
QString PictureType(const QMimeData& data) {
    const QStringList offered = data.formats();
    if (offered.contains(QStringLiteral("image/png"))) return QStringLiteral("image/png");
    for (const PictureFormat& format : PictureFormats())
        for (const QString& type : QString::fromLatin1(format.mimeTypes).split(u' '))
            if (offered.contains(type)) return type;
    return {};
}

}  // namespace

bool OffersPicture(const QMimeData& data) {
    return !FirstLocalFile(data).isEmpty() || !PictureType(data).isEmpty() || data.hasImage();
}

OfferedPicture TakeOffered(const QMimeData& data) {
    OfferedPicture taken{FirstLocalFile(data), {}};
    if (!taken.path.isEmpty()) return taken;
    // A program that doesn't answer is waited for once: seconds, in which nothing else is done.
    if (const QString type = PictureType(data); !type.isEmpty())
        taken.bytes = data.data(type);
    else
        taken.picture = qvariant_cast<QImage>(data.imageData());
    return taken;
}

QString KeepOffered(const OfferedPicture& offered) {
    if (offered.bytes.isEmpty() && offered.picture.isNull())
        throw Error(kFileError, Texts::tr("The other program did not give the picture that it offers"),
                    QStringLiteral("KeepOffered"));
    // What it is, is told by its content.
    const QString path = QDir(TemporaryFolder()).filePath(QStringLiteral("Kelu_Paste.png"));
    AtomicFile(path, AtomicFile::Access::Private).FillAndCommit([&](QFile& file) {
        if (offered.bytes.isEmpty())
            FormatToWrite(path)->encode(ToPictureFormat(offered.picture), {}, file);
        else
            file.write(offered.bytes);
    });
    return path;
}

}  // namespace kelu
