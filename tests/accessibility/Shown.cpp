#include "tests/accessibility/Shown.h"

#include <QDeadlineTimer>
#include <stdexcept>

namespace {
constexpr int LongestAnswer = 20000; // milliseconds
}

Shown::Shown(const QString& program) {
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("QT_LINUX_ACCESSIBILITY_ALWAYS_ON"), QStringLiteral("1"));
    environment.insert(QStringLiteral("QT_ACCESSIBILITY"), QStringLiteral("1"));
    process_.setProcessEnvironment(environment);
    process_.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    process_.start(program, {});
    if (!process_.waitForStarted())
        throw std::runtime_error(program.toStdString() + " does not start");
    Do(QStringLiteral("names"));
    reader_ = std::make_unique<Reader>(QStringLiteral("accessibility_forms"));
}

Shown::~Shown() {
    process_.closeWriteChannel();
    if (!process_.waitForFinished(LongestAnswer))
        process_.kill();
}

QString Shown::Do(const QString& command) {
    process_.write(command.toUtf8() + '\n');
    const QDeadlineTimer latest(LongestAnswer);
    while (true) {
        while (process_.canReadLine()) {
            const QString line = QString::fromUtf8(process_.readLine()).trimmed();
            if (line.startsWith(QLatin1String("> failed")))
                throw std::runtime_error((command + line.mid(1)).toStdString());
            if (line == QLatin1String(">"))
                return {};
            if (line.startsWith(QLatin1String("> ")))
                return line.mid(2);
        }
        if (!process_.waitForReadyRead(static_cast<int>(latest.remainingTime())))
            throw std::runtime_error("no answer to: " + command.toStdString());
    }
}

void Shown::Show(const QString& form) {
    if (form == QLatin1String("MessageBox"))
        title_ = Do(QStringLiteral("box ok"));
    else if (form == QLatin1String("QuestionBox"))
        title_ = Do(QStringLiteral("box yesno"));
    else
        title_ = Do(QStringLiteral("show ") + form);
}

void Shown::Press(const QString& keys, int times) {
    Do(QStringLiteral("key %1 %2").arg(times).arg(keys));
}

int Shown::Changed(const QRect& onScreen) {
    return Do(QStringLiteral("changed %1 %2 %3 %4")
                  .arg(onScreen.x())
                  .arg(onScreen.y())
                  .arg(onScreen.width())
                  .arg(onScreen.height()))
        .toInt();
}

bool Shown::Takes(const QString& key) {
    return !Do(QStringLiteral("hold ") + key).isEmpty();
}

QStringList Shown::Told() {
    return Do(QStringLiteral("told")).split(QLatin1Char('|'), Qt::SkipEmptyParts);
}
