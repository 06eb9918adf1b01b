// SPDX-License-Identifier: MIT
#include "platform/language.h"

#include <QCoreApplication>
#include <QDir>
#include <QTranslator>
#include <memory>

namespace kelu {

namespace {

constexpr const char* kInUse = "language";  // name of the translator, the application's child

//: The number under which the setting "ID" chooses this language. A number that no other language has.
constexpr const char* kId[] = QT_TRANSLATE_NOOP3("kelu::Language", "ID", "number of the language");

QTranslator* InUse() {
    return QCoreApplication::instance()->findChild<QTranslator*>(QLatin1String(kInUse), Qt::FindDirectChildrenOnly);
}

QString IdOf(const QTranslator& language) { return language.translate("kelu::Language", kId[0], kId[1]); }

}  // namespace

void UseLanguage(const QString& id) {
    QTranslator* before = InUse();
    if (before && IdOf(*before) == id) return;
    delete before;
    const QDir languages(QStringLiteral(":/translations"));
    for (const QString& file : languages.entryList(QDir::Files)) {
        auto language = std::make_unique<QTranslator>(QCoreApplication::instance());
        if (!language->load(languages.filePath(file)) || IdOf(*language) != id) continue;
        language->setObjectName(QLatin1String(kInUse));
        QCoreApplication::installTranslator(language.release());
        return;
    }
}

QLocale LanguageLocale() {
    const QTranslator* language = InUse();
    return language ? QLocale(language->language()) : QLocale();
}

}  // namespace kelu
