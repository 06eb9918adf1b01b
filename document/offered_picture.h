// What a drop or the clipboard holds for this program: a file, or a picture that has none.
// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QImage>
#include <QString>

class QMimeData;

namespace kelu {

struct OfferedPicture {
    QString path;         ///< of a local file; empty: the picture has none
    QByteArray bytes;     ///< of a picture, as a file would hold them
    QImage picture = {};  ///< from programs that give no bytes
};

/// Whether there is something to take. Asks the other program for no data.
bool OffersPicture(const QMimeData& data);
/// The first local file, else the picture; browsers give one with an address of the web.
OfferedPicture TakeOffered(const QMimeData& data);

/// Lays a picture without a file among the temporary files, where the next one takes its place, and gives its path.
/// Throws Error(kFileError), also for one that was offered and not given.
QString KeepOffered(const OfferedPicture& offered);

}  // namespace kelu
