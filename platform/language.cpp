// SPDX-License-Identifier: MIT
#include "platform/language.h"

#include <QCoreApplication>
#include <QDir>
#include <QLibraryInfo>
#include <QTranslator>
#include <memory>

namespace kelu {

namespace {

constexpr const char* kInUse = "language";  // name of the translator, the application's child

//: The text of the setting "ID" that chooses this language, one that no other language has.
constexpr const char* kId[] = QT_TRANSLATE_NOOP3("kelu::Language", "ID", "value of the setting");

QTranslator* InUse() {
    return QCoreApplication::instance()->findChild<QTranslator*>(QLatin1String(kInUse), Qt::FindDirectChildrenOnly);
}

QString IdOf(const QTranslator& language) { return language.translate("kelu::Language", kId[0], kId[1]); }

/// Every language file's translator in turn, until `found` takes one.
template <typename Found>
void LookThrough(Found&& found) {
    const QDir languages(QStringLiteral(":/translations"));
    for (const QString& file : languages.entryList(QDir::Files)) {
        auto language = std::make_unique<QTranslator>(QCoreApplication::instance());
        if (language->load(languages.filePath(file)) && found(language)) return;
    }
}

/// The toolkit's own texts in this language, where they are installed; gone together with it.
void AddToolkitTexts(QTranslator& language) {
    auto* toolkit = new QTranslator(&language);
    if (toolkit->load(QLocale(language.language()), QStringLiteral("qtbase"), QStringLiteral("_"),
                      QLibraryInfo::path(QLibraryInfo::TranslationsPath)))
        QCoreApplication::installTranslator(toolkit);
}

}  // namespace

void UseLanguage(const QString& id) {
    QTranslator* before = InUse();
    if (before && IdOf(*before) == id) return;
    delete before;
    LookThrough([&](std::unique_ptr<QTranslator>& language) {
        if (IdOf(*language) != id) return false;
        language->setObjectName(QLatin1String(kInUse));
        AddToolkitTexts(*language);
        QCoreApplication::installTranslator(language.release());
        return true;
    });
}

QStringList LanguageIds() {
    QStringList ids;
    LookThrough([&](const std::unique_ptr<QTranslator>& language) {
        ids += IdOf(*language);
        return false;
    });
    return ids;
}

QString LanguageInUse() {
    const QTranslator* language = InUse();
    return language ? language->language() : QString();
}

QLocale LanguageLocale() {
    const QTranslator* language = InUse();
    return language ? QLocale(language->language()) : QLocale();
}

}  // namespace kelu
