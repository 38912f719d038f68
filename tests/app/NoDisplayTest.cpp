#include "tests/common/TestRun.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>
#include <gtest/gtest.h>

namespace {

const QString Sentence = QStringLiteral(
    "Sparkit Dutygrid found no display to show its windows on. Please start it from the menus of "
    "your desktop, or from a terminal there.\n");

/// The program as it is delivered, in a folder of its own.
class NoDisplayTest : public testing::Test {
protected:
    NoDisplayTest() {
        EXPECT_TRUE(
            QFile::copy(QCoreApplication::applicationDirPath() + QStringLiteral("/../dutygrid"),
                        Path(QStringLiteral("dutygrid"))));
        surroundings_.remove(QStringLiteral("DISPLAY"));
        surroundings_.remove(QStringLiteral("WAYLAND_DISPLAY"));
        surroundings_.remove(QStringLiteral("QT_QPA_PLATFORM"));
        // A compositor would be looked for in there.
        surroundings_.insert(QStringLiteral("XDG_RUNTIME_DIR"), folder_.path());
        surroundings_.insert(QStringLiteral("XDG_CONFIG_HOME"), folder_.path());
    }

    QString Path(const QString& name) const { return folder_.filePath(name); }

    void Start(QProcess& program, const QString& variable = {}, const QString& value = {}) {
        if (!variable.isEmpty())
            surroundings_.insert(variable, value);
        program.setProcessEnvironment(surroundings_);
        program.start(Path(QStringLiteral("dutygrid")), QStringList());
    }

    void ExpectSentence(const QString& variable = {}, const QString& value = {}) {
        QProcess program;
        Start(program, variable, value);
        ASSERT_TRUE(program.waitForFinished(Patience));
        EXPECT_EQ(program.exitStatus(), QProcess::NormalExit);
        EXPECT_EQ(program.exitCode(), 1);
        const QString told = QString::fromUtf8(program.readAllStandardError());
        EXPECT_TRUE(told.endsWith(Sentence)) << told.toStdString();
    }

private:
    QTemporaryDir folder_;
    QProcessEnvironment surroundings_ = QProcessEnvironment::systemEnvironment();
};

TEST_F(NoDisplayTest, WithoutADisplayItSaysSoAndEnds) {
    ExpectSentence();
}

TEST_F(NoDisplayTest, WithADisplayThatIsNotThereItSaysSoAndEnds) {
    ExpectSentence(QStringLiteral("DISPLAY"), QStringLiteral(":4711"));
}

TEST_F(NoDisplayTest, WithoutWindowsThatAnybodySeesItRuns) {
    ASSERT_TRUE(QDir().mkdir(Path(QStringLiteral("Database"))));
    QProcess program;
    Start(program, QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("offscreen"));
    ASSERT_TRUE(program.waitForStarted(Patience));
    const QString database = Path(QStringLiteral("Database/Charts.mdb"));
    EXPECT_TRUE(QTest::qWaitFor([&] { return QFile::exists(database); }, Patience));
    EXPECT_EQ(program.state(), QProcess::Running);
    program.kill();
    EXPECT_TRUE(program.waitForFinished(Patience));
}

} // namespace
