// The texts of the About message.
// SPDX-License-Identifier: MIT
#include "app/about_message.h"

#include "output/pdf/product.h"

#include <QStringList>

namespace kelu {
namespace {

const QString kLineEnd = QStringLiteral("\r\n");

QString Heading() {
    return QStringList{QStringLiteral("Kelu \u00A6 Have Fun With Effects :)"),
                       QString(),
                       QStringLiteral("Version " KELU_VERSION " - (Build " KELU_BUILD ")"),
                       QStringLiteral("Copyright \u00A9 2026 Tarvane Design. Free under the MIT licence."),
                       QString(),
                       QString::fromLatin1(kProductPage),
                       QString(),
                       QStringLiteral("Written by the people of Tarvane Design")}
        .join(kLineEnd);
}

QString Body() {
    return QStringList{
        QStringLiteral("I would like to thank all the people who supported me during the development of Kelu. Those "
                       "endless nights and the bottomless cups of coffee and music that got me going while I faced "
                       "certain 'challanges'."),
        QStringLiteral("I would like to thank Fathsoft for their invaluable help and also providing the excellant "
                       "ImageX imaging component which Kelu is based on."),
        QStringLiteral("This program is dedicated to my little daughter."),
        QStringLiteral("I hope you enjoy this program and find it fun and useful.")}
        .join(kLineEnd + kLineEnd);
}

}  // namespace

void ShowAboutMsg(MsgDialog& dialog) {
    Message about{Heading(), Body(), MsgIcon::Kelu};
    about.title = QStringLiteral("About Kelu...");
    about.look = MsgLook::About;
    dialog.ShowMessage(about);
}

}  // namespace kelu
