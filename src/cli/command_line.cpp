#include "command_line.h"

#include <QCommandLineParser>
#include <QCoreApplication>

namespace {

const QString Commands = QStringLiteral(
    "  check SOUBOR...           jeden řádek o každém souboru; návratový kód 0, jen když se\n"
    "                            každý otevře bez hlášení a má hrdinu\n"
    "  info SOUBOR...            rozměry, hrdina a počty objektů podle názvů z palety\n"
    "  render SOUBOR -o OBR.png  level, jak ho editor ukáže hned po otevření\n");

const QString Description =
    QStringLiteral(
        "Kontroluje, popisuje a vykresluje levely hry Varnok bez okna, stejným čtením "
        "a kreslením jako editor.\n\n") +
    Commands +
    QStringLiteral(
        "\nNávratové kódy: 0 v pořádku, 1 chyba v levelu nebo souboru, 2 špatné použití.");

std::optional<Command> commandNamed(const QString& name) {
    if (name == QLatin1String("check")) return Command::Check;
    if (name == QLatin1String("info")) return Command::Info;
    if (name == QLatin1String("render")) return Command::Render;
    return std::nullopt;
}

}  // namespace

ParsedCommandLine parseCommandLine(const QStringList& arguments) {
    QCommandLineParser parser;
    parser.setApplicationDescription(Description);
    parser.addPositionalArgument(QStringLiteral("příkaz"),
                                 QStringLiteral("check, info nebo render"),
                                 QStringLiteral("příkaz"));
    parser.addPositionalArgument(QStringLiteral("soubory"), QStringLiteral("soubory levelů"),
                                 QStringLiteral("SOUBOR..."));
    // Qt's own help and version options describe themselves in English.
    const QCommandLineOption help({QStringLiteral("h"), QStringLiteral("help")},
                                  QStringLiteral("vypíše tuto nápovědu"));
    const QCommandLineOption version({QStringLiteral("v"), QStringLiteral("version")},
                                     QStringLiteral("vypíše verzi programu"));
    const QCommandLineOption json(QStringLiteral("json"),
                                  QStringLiteral("check, info: jeden objekt JSON na soubor"));
    const QCommandLineOption output({QStringLiteral("o"), QStringLiteral("output")},
                                    QStringLiteral("render: kam uložit obrázek (PNG)"),
                                    QStringLiteral("OBR.png"));
    const QCommandLineOption sheet(
        QStringLiteral("sheet"),
        QStringLiteral("render: obrázky objektů; jinak EditPic.jpg vedle levelu, jinak vestavěné"),
        QStringLiteral("EditPic.jpg"));
    const QCommandLineOption cellSize(QStringLiteral("cell-size"),
                                      QStringLiteral("render: pixelů na buňku (výchozí 64)"),
                                      QStringLiteral("N"));
    const QCommandLineOption minimap(
        QStringLiteral("minimap"), QStringLiteral("render: mapka, 6 pixelů na buňku, její barvy"));
    for (const QCommandLineOption* option :
         {&help, &version, &json, &output, &sheet, &cellSize, &minimap})
        parser.addOption(*option);

    ParsedCommandLine parsed;
    // Wrong usage shows the synopsis and the commands; --help shows everything.
    parsed.usage = parser.helpText().section(QLatin1Char('\n'), 0, 0) + QStringLiteral("\n") +
                   Commands + QStringLiteral("Více: varnok-level --help");
    const auto wrong = [&](const QString& reason) {
        parsed.outcome = ParsedCommandLine::Outcome::WrongUsage;
        parsed.text = reason;
        return parsed;
    };
    if (!parser.parse(arguments)) return wrong(parser.errorText());
    if (parser.isSet(help)) {
        parsed.outcome = ParsedCommandLine::Outcome::Help;
        parsed.text = parser.helpText();
        return parsed;
    }
    if (parser.isSet(version)) {
        parsed.outcome = ParsedCommandLine::Outcome::Version;
        parsed.text = QCoreApplication::applicationName() + QLatin1Char(' ') +
                      QCoreApplication::applicationVersion();
        return parsed;
    }

    QStringList positional = parser.positionalArguments();
    if (positional.isEmpty())
        return wrong(QStringLiteral("Chybí příkaz (check, info nebo render)."));
    const std::optional<Command> command = commandNamed(positional.takeFirst());
    if (!command)
        return wrong(QStringLiteral("Neznámý příkaz „%1“.").arg(parser.positionalArguments()[0]));
    Invocation& run = parsed.invocation;
    run.command = *command;
    run.files = positional;
    if (run.files.isEmpty()) return wrong(QStringLiteral("Chybí soubor levelu."));

    const bool renders = run.command == Command::Render;
    for (const QCommandLineOption* option : {&output, &sheet, &cellSize, &minimap}) {
        if (!renders && parser.isSet(*option))
            return wrong(QStringLiteral("Volba --%1 patří jen k příkazu render.")
                             .arg(option->names().constLast()));
    }
    if (renders) {
        if (parser.isSet(json)) return wrong(QStringLiteral("Příkaz render nemá volbu --json."));
        if (run.files.size() != 1)
            return wrong(QStringLiteral("Příkaz render vykresluje jeden level na obrázek."));
        if (!parser.isSet(output))
            return wrong(QStringLiteral("Příkaz render potřebuje -o OBR.png, kam obrázek uložit."));
        run.output = parser.value(output);
        run.sheet = parser.value(sheet);
        run.minimap = parser.isSet(minimap);
        if (run.minimap && (parser.isSet(sheet) || parser.isSet(cellSize)))
            return wrong(
                QStringLiteral("Mapka má vlastní barvy a 6 pixelů na buňku: "
                               "--minimap nebere --sheet ani --cell-size."));
        if (parser.isSet(cellSize)) {
            bool number = false;
            const int side = parser.value(cellSize).toInt(&number);
            if (!number || side < 1)
                return wrong(QStringLiteral("--cell-size musí být celé číslo od 1 výš, ne „%1“.")
                                 .arg(parser.value(cellSize)));
            run.cellSize = side;
        }
    }
    run.json = parser.isSet(json);
    parsed.outcome = ParsedCommandLine::Outcome::Run;
    return parsed;
}
