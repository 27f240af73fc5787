#pragma once

#include <QFunctionPointer>
#include <QString>

namespace krt550 {

/// Parts of the program are what most starts do without: each is a library of its own beside the program, with one
/// function krt550_NAME, so that only who works with it waits for it and for the libraries that it needs.

/// True when the part lies where it belongs; else the reason in `error`. Costs next to nothing.
bool HasPart(const char* name, QString& error);

/// The part's function; null, and the reason in `error`, when the part is missing or cannot be loaded.
QFunctionPointer LoadPart(const char* name, QString& error);

/// The same with its type, which the door of the part declares: LoadPart<decltype(krt550_trends)>("trends", error).
template <class Function> Function* LoadPart(const char* name, QString& error) {
    return reinterpret_cast<Function*>(LoadPart(name, error));
}

} // namespace krt550
