#include "czech_qt_texts.h"

#include <QCoreApplication>
#include <QLibraryInfo>
#include <QTranslator>

bool useCzechQtTexts() {
    // Owned by the application, so that it lives as long as the texts it gives.
    auto* translator = new QTranslator(QCoreApplication::instance());
    if (!translator->load(QStringLiteral("qtbase_cs"),
                          QLibraryInfo::path(QLibraryInfo::TranslationsPath))) {
        delete translator;
        return false;
    }
    return QCoreApplication::installTranslator(translator);
}
