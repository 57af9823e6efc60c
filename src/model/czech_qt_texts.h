#pragma once

// Makes Qt's own texts Czech whatever the system's locale is: the buttons and menus Qt draws
// (a size field's context menu, a box's buttons) and its command-line help lines. Qt's Czech
// catalogue comes with Debian's qt6-translations-l10n; without it Qt's texts stay English.
// Needs the application object; returns whether the catalogue was found.
bool useCzechQtTexts();
