#pragma once

struct Invocation;

// render lives in a module of its own, loaded only when it is asked for: Qt Gui and the
// graphics libraries it brings take as long to load as all the rest of the program, which
// check and info, the commands run over many files, do not need.
using RenderEntry = int (*)(const Invocation& invocation);
inline constexpr char RenderEntryName[] = "varnokLevelRender";

extern "C" int varnokLevelRender(const Invocation& invocation);
