// A picture on the clipboard: encoded once, before it is offered, so that no other program's paste holds this one.
// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QMap>
#include <QMimeData>

#include "platform/run_beside.h"

namespace kelu {

/// Keeps the PNG alone: a picture kept would have to be copied before the next stroke. Other formats are made of it
/// when somebody asks.
class ClipboardPicture : public QMimeData {
    Q_OBJECT

 public:
    explicit ClipboardPicture(const QByteArray& png);

    QStringList formats() const override;

 protected:
    QVariant retrieveData(const QString& mimeType, QMetaType type) const override;

 private:
    mutable QMap<QString, QByteArray> encoded_;  ///< by MIME type
};

/// Puts the picture on the clipboard, encoded by `beside`.
void CopyToClipboard(const QImage& picture, const Beside& beside);

}  // namespace kelu
