// What is told of pictures, their files and their memory, in the language in use.
// SPDX-License-Identifier: MIT
#pragma once

#include <QCoreApplication>

namespace kelu {

struct PictureTexts {
    Q_DECLARE_TR_FUNCTIONS(kelu::Picture)
};

}  // namespace kelu
