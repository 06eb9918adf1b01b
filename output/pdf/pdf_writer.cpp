// Objects of the document, in order: catalogue, list of pages, page, its drawing commands, picture, length of the
// picture's stream (known only behind it), properties.
// SPDX-License-Identifier: MIT
#include "output/pdf/pdf_writer.h"

#include <QDateTime>
#include <QTimeZone>
#include <algorithm>
#include <vector>

#include "pictures/deflated_rows.h"
#include "pictures/picture_encoders.h"
#include "pictures/picture_texts.h"
#include "platform/error.h"
#include "platform/run_beside.h"

namespace kelu {

namespace {

/// Writes objects one behind the other and remembers where each begins.
class Objects {
 public:
    explicit Objects(QIODevice& device) : device_(device) {
        Write("%PDF-1.4\n%\xE2\xE3\xCF\xD3\n");  // four bytes that show that the file is no text
    }

    void Write(const QByteArray& bytes) { Write(bytes.constData(), bytes.size()); }
    void Write(const char* bytes, qint64 count) {
        WriteAll(device_, bytes, count);
        position_ += count;
    }
    /// Returns the object's number.
    int Begin() {
        starts_.push_back(position_);
        const int number = static_cast<int>(starts_.size());
        Write(QByteArray::number(number) + " 0 obj\n");
        return number;
    }
    void End() { Write("\nendobj\n"); }
    void Add(const QByteArray& content) {
        Begin();
        Write(content);
        End();
    }
    qint64 Position() const { return position_; }

    /// The table of all objects and the way into the document.
    void Finish(int catalogue, int properties) {
        const QByteArray table = QByteArray::number(position_);
        const QByteArray count = QByteArray::number(static_cast<qint64>(starts_.size()) + 1);
        Write("xref\n0 " + count + "\n0000000000 65535 f \n");
        for (const qint64 start : starts_) Write(QByteArray::number(start).rightJustified(10, '0') + " 00000 n \n");
        Write("trailer\n<< /Size " + count + " /Root " + QByteArray::number(catalogue) + " 0 R /Info " +
              QByteArray::number(properties) + " 0 R >>\nstartxref\n" + table + "\n%%EOF\n");
    }

 private:
    QIODevice& device_;
    qint64 position_ = 0;
    std::vector<qint64> starts_;
};

QByteArray Number(double value) {
    QByteArray text = QByteArray::number(value, 'f', 5);
    while (text.endsWith('0')) text.chop(1);
    if (text.endsWith('.')) text.chop(1);
    return text;
}

/// Any text: UTF-16 with its mark, as hexadecimal digits.
QByteArray Text(const QString& text) {
    QByteArray digits = "<FEFF";
    for (const QChar c : text) digits += QByteArray::number(c.unicode(), 16).rightJustified(4, '0').toUpper();
    return digits + '>';
}

QByteArray Properties(const PdfProperties& properties) {
    const std::pair<const char*, const QString&> texts[] = {{"Title", properties.title},
                                                            {"Author", properties.author},
                                                            {"Subject", properties.subject},
                                                            {"Keywords", properties.keywords},
                                                            {"Creator", properties.creator}};
    QByteArray entries;
    for (const auto& [name, text] : texts)
        if (!text.isEmpty()) entries += QByteArray("/") + name + ' ' + Text(text) + '\n';
    return "<< " + entries +
           "/CreationDate (D:" + QDateTime::currentDateTimeUtc().toString(QStringLiteral("yyyyMMddHHmmss")).toLatin1() +
           "Z) >>";
}

/// Returns the length of the stream.
qint64 WriteRows(Objects& objects, const QImage& paper, RowSamples samples) {
    const qint64 begin = objects.Position();
    const WorkReport report;
    DeflateRows(paper, samples, [&](std::span<const std::uint8_t> piece, int rows) {
        objects.Write(reinterpret_cast<const char*>(piece.data()), static_cast<qint64>(piece.size()));
        report(rows, paper.height());
    });
    return objects.Position() - begin;
}

void WriteDocument(QIODevice& device, const QImage& paper, const PdfPage& page, const PdfProperties& properties) {
    Objects objects(device);
    objects.Add("<< /Type /Catalog /Pages 2 0 R >>");
    objects.Add("<< /Type /Pages /Kids [3 0 R] /Count 1 >>");
    objects.Add("<< /Type /Page /Parent 2 0 R /MediaBox [0 0 " + Number(page.size.width()) + ' ' +
                Number(page.size.height()) + "]\n/Contents 4 0 R /Resources << /XObject << /Im 5 0 R >> >> >>");
    // The picture is one unit high and wide, and the page is counted from its lower left corner.
    const QByteArray commands = "q " + Number(page.picture.width()) + " 0 0 " + Number(page.picture.height()) + ' ' +
                                Number(page.picture.left()) + ' ' + Number(page.size.height() - page.picture.bottom()) +
                                " cm /Im Do Q";
    objects.Add("<< /Length " + QByteArray::number(commands.size()) + " >>\nstream\n" + commands + "\nendstream");

    const RowSamples samples = FewestSamples(paper);
    const QByteArray width = QByteArray::number(paper.width());
    objects.Begin();
    objects.Write(
        "<< /Type /XObject /Subtype /Image /Width " + width + " /Height " + QByteArray::number(paper.height()) +
        " /BitsPerComponent 8\n/ColorSpace " + (samples == RowSamples::Grey ? "/DeviceGray" : "/DeviceRGB") +
        " /Filter /FlateDecode\n/DecodeParms << /Predictor 15 /Colors " +
        QByteArray::number(static_cast<int>(samples)) + " /Columns " + width + " >> /Length 6 0 R >>\nstream\n");
    const qint64 length = WriteRows(objects, paper, samples);
    objects.Write("\nendstream");
    objects.End();
    objects.Add(QByteArray::number(length));
    objects.Add(Properties(properties));
    objects.Finish(1, 7);
}

}  // namespace

void WritePdfPage(QIODevice& device, const QImage& picture, const PdfPage& page, const PdfProperties& properties) {
    if (picture.isNull()) throw Error(kInvalidPicture, PictureTexts::tr("There is no picture to save"));
    WriteDocument(device, OverWhite(picture), page, properties);
}

}  // namespace kelu
