// Draws the toolkit's standard widgets in the dark look: flat plates, one accent, a clear focus ring.
// SPDX-License-Identifier: MIT
#pragma once

#include <QProxyStyle>

namespace kelu::theme {

class DarkStyle : public QProxyStyle {
    Q_OBJECT

 public:
    DarkStyle();
};

}  // namespace kelu::theme
