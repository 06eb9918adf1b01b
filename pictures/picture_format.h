// The picture formats: one row each, and all that the program knows of a format stands in its row.
// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QIODevice>
#include <QImage>
#include <QSize>
#include <QStringList>
#include <array>
#include <span>

#include "pictures/metadata.h"
#include "pictures/picture_input.h"

namespace kelu {

/// Enough of a file for the fixed header of every format.
inline constexpr qint64 kHeadBytes = 128;

struct DecodedPicture {
    QImage image;  ///< as decoded: not turned, colours as in the file; null: this decoder can't do this kind of file
    Metadata metadata = {};
    QSize fileSize = {};  ///< pixels of the picture in the file, when `image` is a smaller one
};

struct WriteOptions {
    int quality = 92;        ///< 0 to 100, of the formats that lose something
    Metadata metadata = {};  ///< what goes along, in formats that have a place for it
};

struct PictureFormat {
    const char* name;        ///< as people write it
    const char* extensions;  ///< lower case, separated by blanks, the usual one first; the open dialog lists these
    const char* alsoWrittenAs = "";  ///< further extensions that tell a writer, not listed by the open dialog
    const char* mimeTypes;           ///< separated by blanks, as the desktop entry names them

    /// Whether the content is of this format. `head` is the first kHeadBytes, all of a shorter file. Formats without a
    /// signature stand last among the rows.
    bool (*recognise)(const QByteArray& head, qint64 fileSize);
    /// Throws Error before memory is taken: sizes out of range, a file that ends before its data does. Null where the
    /// decoders see to it themselves.
    void (*check)(PictureInput& input) = nullptr;
    /// Tried in turn, until one gives a picture. They throw Error for a file that is cut short or damaged, and give a
    /// null image for a kind of file that is the next one's. Unused places are null.
    std::array<DecodedPicture (*)(PictureInput& input), 3> decoders = {};
    /// Adds what the file tells beside the pixels; after a decoder gave them, and where those don't do it themselves.
    void (*describe)(PictureInput& input, Metadata& metadata) = nullptr;
    const char* toolkitName = nullptr;  ///< what DecodeWithToolkit asks for
    const char* magickName = nullptr;   ///< the coder that DecodeWithMagick asks for
    const char* moduleName = nullptr;   ///< what DecodeWithModule loads

    /// `picture` is RGB32 or ARGB32; formats without transparency get it over white. Throws Error(kFileError); when it
    /// was the device that failed, its error string tells more. Null: the format is only read.
    void (*encode)(const QImage& picture, const WriteOptions& options, QIODevice& device) = nullptr;
    int saveFilter = 0;  ///< which of the save dialog's filters it is, from 1; 0: not offered there
};

/// All of them, in the order in which content is told.
std::span<const PictureFormat> PictureFormats();

/// The format of a file by its content; null: none. See PictureFormat::recognise for the arguments.
const PictureFormat* TellPictureFormat(const QByteArray& head, qint64 fileSize);

/// The format that files of this name are written in; null: none.
const PictureFormat* FormatToWrite(const QString& path);

/// The extensions that the open dialog lists, in lower case.
QStringList PictureExtensions();

/// The picture formats of the save dialog, "NAME Files (*.ext)|*.ext" each, separated by "|".
QString SaveFilters();
/// "PNG Files (*.png)|*.png"
QString SaveFilter(const QString& name, const QString& extension);

}  // namespace kelu
