#include "editor_texts.h"

#include <QStringList>

namespace EditorTexts {

QString helpText() {
    static const QStringList lines = {
        QStringLiteral("Nacházíte se v Editoru uživatelského levelu ke hře Varnok"),
        QStringLiteral("V levém sloupečku se nacházejí tlačítka s objekty, které můžete "
                       "zakreslit do mapy"),
        QStringLiteral("Klikněte na tlačítko a poté najeďte myší do hlavní kreslicí plochy"),
        QStringLiteral("Stiskněte levé tl myši, stále jej držte a pohybujte se. Tím kreslíte "
                       "objekty"),
        QStringLiteral("V levém horním rohu se zobrazuje názorná mapka levelu"),
        QStringLiteral("Chcete-li pohnout s místem, kde kreslíte, držte pravé tl. myši a hýbejte "
                       "s ní."),
        QStringLiteral("Pokud chcete posunout levý sloupec s obrázky objektů, "),
        QStringLiteral("stačí stisknout levé tl. myši na modrém pozadí sloupce a pohybovat myší "
                       "nahoru a dolu"),
        QStringLiteral("Pro uložení levelu stiskněte čudlík ULOŽIT. Předem je však nutné umístit "
                       "do levelu"),
        QStringLiteral("počáteční pozici hrdiny (Zelený Varnok)"),
        QStringLiteral("Pro nový level zadejte jeho rozměry NxN do políček vlevo dole a poté "
                       "stiskněte tl. NOVÝ"),
        QStringLiteral("Rozměry zadávejte v rozmezí cca 20x20 až 40x40"),
        QStringLiteral("Mnoho zábavy s použitím editoru přeje Autor"),
    };
    return lines.join(QStringLiteral("\r\n"));
}

QString badNewSize(int largest) {
    return QStringLiteral("Rozměry levelu musí být celá čísla od 3 do %1.").arg(largest);
}

QString unreadableSheet(const QString& fileName) {
    return QStringLiteral("Obrázek %1 nelze načíst, použije se vestavěný.").arg(fileName);
}

}  // namespace EditorTexts
