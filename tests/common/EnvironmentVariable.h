#pragma once

#include <QByteArray>
#include <QtGlobal>

/// A variable of the environment that may be changed while this lives, and is as before afterwards.
class EnvironmentVariable {
public:
    explicit EnvironmentVariable(const char* name)
        : name_(name), wasSet_(qEnvironmentVariableIsSet(name)), former_(qgetenv(name)) {}
    EnvironmentVariable(const char* name, const QByteArray& value) : EnvironmentVariable(name) {
        qputenv(name, value);
    }
    ~EnvironmentVariable() {
        if (wasSet_)
            qputenv(name_, former_);
        else
            qunsetenv(name_);
    }
    Q_DISABLE_COPY_MOVE(EnvironmentVariable)

private:
    const char* name_;
    bool wasSet_;
    QByteArray former_;
};
