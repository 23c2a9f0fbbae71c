#pragma once

#include <QtCore/QString>

#include <cstddef>
#include <cstdint>

// What every fuzz target shares: a GUI application on the offscreen platform
// (the control is a widget) with Qt's messages silenced, files for the code
// that reads files, and a way to report a broken promise as a crash.
// FuzzSupport.cpp also defines LLVMFuzzerInitialize for every target.
namespace OrrinQuiver::FuzzSupport {

// Writes `data` to a file of its own (named with `suffix`) and returns its
// path; the file of the previous call is removed first.
QString writeInput(const uint8_t *data, size_t size, const QString &suffix = {});

// Runs what the input left for the event loop: posted events and the
// deletion of removed headers and items.
void returnToEventLoop();

// Reports `what` and aborts, so that libFuzzer keeps the input as a crash.
[[noreturn]] void fail(const char *what);

} // namespace OrrinQuiver::FuzzSupport
