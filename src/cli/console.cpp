#include "console.h"

#include <cstdio>

namespace {
void writeLine(std::FILE* stream, const QByteArray& bytes) {
    std::fwrite(bytes.constData(), 1, static_cast<std::size_t>(bytes.size()), stream);
    std::fputc('\n', stream);
}
}  // namespace

void printLine(const QString& line) {
    writeLine(stdout, line.toUtf8());
}

void printBytes(const QByteArray& line) {
    writeLine(stdout, line);
}

void printError(const QString& line) {
    std::fflush(stdout);  // keeps the two streams in order when they share a terminal
    writeLine(stderr, line.toUtf8());
}
