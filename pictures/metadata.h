// What a picture file tells beside its pixels.
// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QImage>
#include <QList>
#include <QString>

namespace kelu {

/// A line of text of a picture file. JPEG keeps lines without names: they are comments.
struct PictureText {
    QString name;
    QString text;
};
inline constexpr const char* kCommentName = "Comment";

/// Travels beside the picture from the reader of its file to the writer of another one; copies cost nothing. The
/// resolution stays with the QImage.
struct Metadata {
    // For the pixels of the file; at rest in a picture that was read.
    int orientation = 1;      ///< EXIF, 1 to 8: how the pixels of the file must be turned to stand upright
    QByteArray profile = {};  ///< embedded ICC profile of the pixels of the file; empty: none

    // What is kept when the picture is saved, as it stood in the file. Writers bring it up to date.
    QByteArray exif = {};  ///< from the mark of the byte order on
    QByteArray xmp = {};   ///< the packet
    QByteArray iptc = {};  ///< the records
    QList<PictureText> texts = {};
};

/// A picture with what its file told beside it.
struct Photograph {
    QImage picture;
    Metadata metadata = {};
};

/// For pictures that are sent away: without anything that could tell where they were taken. Of the EXIF data all but
/// the place and the maker's note stays, of all the rest nothing.
Metadata WithoutPlace(const Metadata& metadata);

}  // namespace kelu
