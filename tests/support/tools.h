// Other programs that tests look through. Where KELU_REQUIRE_TOOLS is set, as in continuous integration, one that is
// missing fails its test: nothing is passed over there.
// SPDX-License-Identifier: MIT
#pragma once

#include <gtest/gtest.h>

#include <QProcess>
#include <QStandardPaths>
#include <QStringList>

namespace kelu {

/// Its path, or nothing. A service's program may lie where only the system looks. The thread sanitizer has none: the
/// toolkit starts programs by a child that shares memory, which leaves the sanitizer's notes of this thread as the
/// child wrote them.
inline QString FindTool([[maybe_unused]] const QString& program) {
#ifdef __SANITIZE_THREAD__
    return {};
#endif
    const QString found = QStandardPaths::findExecutable(program);
    return found.isEmpty() ? QStandardPaths::findExecutable(program, {QStringLiteral("/usr/sbin")}) : found;
}

inline QString MissingTool(const QStringList& programs) {
    for (const QString& program : programs)
        if (FindTool(program).isEmpty()) return program;
    return {};
}

/// False when it is missing or fails. `output` gets what it says.
inline bool RunTool(const QString& program, const QStringList& arguments, QByteArray* output = nullptr) {
    QProcess process;
    process.start(program, arguments);
    const bool ended = process.waitForFinished(60000);
    if (output) *output = process.readAllStandardOutput();
    return ended && process.exitStatus() == QProcess::NormalExit && process.exitCode() == 0;
}

}  // namespace kelu

/// First in a test, or in its SetUp.
#define KELU_NEEDS(...)                                                                 \
    if (const QString missing = kelu::MissingTool({__VA_ARGS__}); !missing.isEmpty()) { \
        if (qEnvironmentVariableIsSet("KELU_REQUIRE_TOOLS"))                            \
            FAIL() << missing.toStdString() << " is not installed";                     \
        else                                                                            \
            GTEST_SKIP() << missing.toStdString() << " is not installed";               \
    }
