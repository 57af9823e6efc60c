#pragma once

#include "level.h"

#include <QString>

// The editor's own texts, exactly as the user sees them.
namespace EditorTexts {

inline const QString SaveQuestion =
    QStringLiteral("Chcete tento level uložit a tím přepsat předcházející?");
inline const QString SaveTitle = QStringLiteral("Uložit přes starý");
inline const QString NoHero = QString::fromUtf8(NoHeroMessage);
inline const QString NoHeroTitle = QStringLiteral("Pozor");
inline const QString BadSizeTitle = QStringLiteral("Pozor");
inline const QString PasteTitle = QStringLiteral("Pozor");
inline const QString OpenQuestion =
    QStringLiteral("Chcete otevřít předcházející level, a tím o tento přijít?");
inline const QString OpenTitle = QStringLiteral("Otevřít starý");
inline const QString HelpTitle = QStringLiteral("Nápověda");
inline const QString RedrawFailed = QStringLiteral("Chyba: asi špatné rozměry");
inline const QString Loading = QStringLiteral("Načítám Level...");

// The help box: 13 lines joined by CR LF, none after the last.
QString helpText();

// New with a size it cannot make: what is accepted.
QString badNewSize(int largest);
// EditPic.jpg present but unreadable: the built-in sheet is used instead.
QString unreadableSheet(const QString& fileName);

}  // namespace EditorTexts
