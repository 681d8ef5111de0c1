#pragma once

#include <QByteArray>
#include <span>

namespace fuzz {

/// A parser of outside data, with what must hold for any input. `run` ends the program where it
/// does not. The name is also that of the folder of saved inputs below tests/data/fuzz.
struct Target
{
    const char *name;
    void (*run)(const QByteArray &bytes);
};

std::span<const Target> targets();

void propertyList(const QByteArray &bytes);
void syntaxDefinition(const QByteArray &bytes);
void colouring(const QByteArray &bytes);

} // namespace fuzz
