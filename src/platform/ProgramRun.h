#pragma once

#include <chrono>
#include <optional>
#include <QByteArray>
#include <QStringList>
#include <stop_token>

namespace platform {

/// What a program writes to its standard output for what it is given on standard input. Nullopt
/// when it could not be started, came to a bad end, took longer than `patience`, or was stopped.
/// Any thread, several at a time; waits.
std::optional<QByteArray> outputOfProgram(const QString &program, const QStringList &arguments,
                                          const QByteArray &input,
                                          std::chrono::milliseconds patience,
                                          const std::stop_token &stop = {});

} // namespace platform
