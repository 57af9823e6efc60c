#pragma once

#include <QString>
#include <QStringList>

#include <optional>

enum class Command { Check, Info, Render };

// What the user asked for, once the command line made sense.
struct Invocation {
    Command command = Command::Check;
    QStringList files;
    bool json = false;
    // render only
    QString output;
    QString sheet;  // empty: EditPic.jpg beside the level, else the built-in sheet
    std::optional<int> cellSize;
    bool minimap = false;
};

struct ParsedCommandLine {
    enum class Outcome { Run, Help, Version, WrongUsage };
    Outcome outcome = Outcome::WrongUsage;
    Invocation invocation;  // for Run
    QString text;           // the help or version text; for WrongUsage, what was wrong
    QString usage;          // the synopsis, which wrong usage prints after its reason
};

// Reads the arguments (the program name first) without printing anything.
ParsedCommandLine parseCommandLine(const QStringList& arguments);
