#pragma once

#include <QByteArray>
#include <QString>

// The program's output is UTF-8 whatever the locale says, so Czech text and the × sign come
// out whole even when no LANG is set.
void printLine(const QString& line);      // a line on standard output
void printBytes(const QByteArray& line);  // a line of ready UTF-8 on standard output
void printError(const QString& line);     // a line on standard error
