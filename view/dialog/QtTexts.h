// Qt's own texts: of the buttons of messages, of the questions for files and printers.
#pragma once

#include <QCoreApplication>
#include <QLibraryInfo>
#include <QLocale>
#include <QTranslator>
#include <string>

namespace kelvarin::view {

// Puts them into a language, as ISO 639 names it, while `texts` lives. They stay English if Qt's translations
// aren't installed.
inline void UseQtTexts(QTranslator& texts, const std::string& language) {
    const QString folder = QLibraryInfo::path(QLibraryInfo::TranslationsPath);
    if (texts.load(QLocale(QString::fromStdString(language)), "qtbase", "_", folder))
        QCoreApplication::installTranslator(&texts);
}

}  // namespace kelvarin::view
