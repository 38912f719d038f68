#pragma once

#include <QString>
#include <QStringList>
#include <optional>
#include <sys/types.h>

/// What this executable does instead of testing when started as a child: the first argument.
inline const QString PlayCommand = QStringLiteral("--play");
inline const QString HoldCommand = QStringLiteral("--hold");
inline const QString RewriteCommand = QStringLiteral("--rewrite");

inline const QString WorkCommand = QStringLiteral("--work");

/// The exit code of a child that ended by a run-time error whose number is too large for one; of
/// others it is their number.
inline constexpr int LargeFault = 100;

/// Another process of this executable, which reports numbers to the one that started it. It dies
/// with its parent, and at the latest with this object.
class ChildProcess {
public:
    /// `environment`: what it has besides this process's, as "NAME=value".
    explicit ChildProcess(const QStringList& arguments, const QStringList& environment = {});
    ~ChildProcess();
    ChildProcess(const ChildProcess&) = delete;
    ChildProcess& operator=(const ChildProcess&) = delete;

    /// Waits for the next number; none if the process has ended.
    std::optional<qint32> NextReport();

    /// Ends it with SIGKILL. False if it had ended by itself before.
    bool Kill();

    /// Waits for its end, whatever it reports until then; the exit code, or -1 if it did not exit
    /// by itself.
    int WaitForExit();

private:
    pid_t process_ = -1;
    int reports_ = -1;
};

/// The child's side: sends a number to the parent.
void ReportToParent(qint32 number);

/// The child's side: makes this process end with its parent.
void EndWithParent();
