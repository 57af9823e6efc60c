#pragma once

struct Invocation;

// Exit codes: everything asked for was fine, something in a level or a file was not, or the
// command line made no sense.
inline constexpr int ExitOk = 0;
inline constexpr int ExitFailed = 1;
inline constexpr int ExitWrongUsage = 2;

int runCheck(const Invocation& invocation);
int runInfo(const Invocation& invocation);
int runRender(const Invocation& invocation);
