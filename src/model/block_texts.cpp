#include "block_texts.h"

namespace BlockTexts {

QString notOurs() {
    return QStringLiteral("Ve schránce není blok levelu, není co vložit.");
}

QString refused(const QString& reason) {
    return QStringLiteral("Blok ze schránky nelze vložit: %1 Level zůstal beze změny.").arg(reason);
}

QString badHeader() {
    return QStringLiteral("první řádek má mít tvar „VARNOK-BLOK 1 šířka výška“.");
}

QString unknownVersion(const QByteArray& version) {
    return QStringLiteral("blok je ve formátu verze %1, editor zná jen verzi 1.")
        .arg(QString::fromLatin1(version));
}

QString badSize(const QByteArray& width, const QByteArray& height) {
    return QStringLiteral("rozměry bloku „%1 × %2“ nejsou kladná celá čísla.")
        .arg(QString::fromLatin1(width), QString::fromLatin1(height));
}

QString tooLarge(const QByteArray& width, const QByteArray& height, int largest) {
    return QStringLiteral(
               "blok %1 × %2 políček je větší, než editor dovolí (nejvýše %3 na stranu).")
        .arg(QString::fromLatin1(width), QString::fromLatin1(height))
        .arg(largest);
}

QString missingRows(int expected, int found) {
    return QStringLiteral("chybí řádky políček: výška bloku je %1, řádků je ve schránce jen %2.")
        .arg(expected)
        .arg(found);
}

QString extraRows(int expected) {
    return QStringLiteral("za %1. řádkem políček, posledním podle záhlaví, pokračuje další text.")
        .arg(expected);
}

QString wrongRowLength(int row, qsizetype length, int width) {
    return QStringLiteral("délka %1. řádku políček je %2, má být %3 (šířka bloku).")
        .arg(row)
        .arg(length)
        .arg(width);
}

QString unknownCode(int row, int column, int code) {
    return QStringLiteral("na %1. řádku v %2. sloupci je kód %3, pro který editor nemá obrázek.")
        .arg(row)
        .arg(column)
        .arg(code);
}

}  // namespace BlockTexts
