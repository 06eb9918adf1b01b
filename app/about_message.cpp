// The texts of the About message.
// SPDX-License-Identifier: MIT
#include "app/about_message.h"

#include "output/pdf/product.h"

#include <QCoreApplication>
#include <QStringList>

namespace kelu {
namespace {

struct Texts {
    Q_DECLARE_TR_FUNCTIONS(kelu::AboutMessage)
};

const QString kLineEnd = QStringLiteral("\r\n");

QString Heading() {
    return QStringList{QStringLiteral("Kelu \u00A6 Have Fun With Effects :)"),
                       QString(),
                       QStringLiteral("Version " KELU_VERSION " - (Build " KELU_BUILD ")"),
                       Texts::tr("Copyright \u00A9 2026 Tarvane Design. Free under the MIT licence."),
                       QString(),
                       QString::fromLatin1(kProductPage),
                       QString(),
                       Texts::tr("Written by the people of Tarvane Design")}
        .join(kLineEnd);
}

QString Body() {
    return QStringList{
        Texts::tr("I would like to thank all the people who supported me during the development of Kelu. Those "
                  "endless nights and the bottomless cups of coffee and music that got me going while I faced "
                  "certain 'challanges'."),
        Texts::tr("I would like to thank Fathsoft for their invaluable help and also providing the excellant "
                  "ImageX imaging component which Kelu is based on."),
        Texts::tr("This program is dedicated to my little daughter."),
        Texts::tr("I hope you enjoy this program and find it fun and useful.")}
        .join(kLineEnd + kLineEnd);
}

}  // namespace

void ShowAboutMsg(MsgDialog& dialog) {
    Message about{Heading(), Body(), MsgIcon::Kelu};
    about.title = Texts::tr("About Kelu...");
    about.look = MsgLook::About;
    dialog.ShowMessage(about);
}

}  // namespace kelu
