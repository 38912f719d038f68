#include "tests/common/TestRun.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>
#include <gtest/gtest.h>
#include <utility>

namespace {

/// Both programs as they are delivered, in a folder of their own.
class NoDisplayTest : public testing::Test {
protected:
    NoDisplayTest() {
        for (const QString& program : {Main, Restore})
            EXPECT_TRUE(QFile::copy(QCoreApplication::applicationDirPath() +
                                        QStringLiteral("/../") + program,
                                    Path(program)));
        surroundings_.remove(QStringLiteral("DISPLAY"));
        surroundings_.remove(QStringLiteral("WAYLAND_DISPLAY"));
        surroundings_.remove(QStringLiteral("QT_QPA_PLATFORM"));
        // A compositor would be looked for in there.
        surroundings_.insert(QStringLiteral("XDG_RUNTIME_DIR"), folder_.path());
        surroundings_.insert(QStringLiteral("XDG_CONFIG_HOME"), folder_.path());
    }

    QString Path(const QString& name) const { return folder_.filePath(name); }

    void Start(QProcess& process, const QString& program, const QString& variable = {},
               const QString& value = {}) {
        if (!variable.isEmpty())
            surroundings_.insert(variable, value);
        process.setProcessEnvironment(surroundings_);
        process.start(Path(program), QStringList());
    }

    void ExpectSentences(const QString& variable = {}, const QString& value = {}) {
        for (const auto& [program, name] :
             {std::pair(Main, QStringLiteral("Sparkit Dutygrid")),
              {Restore, QStringLiteral("Sparkit Dutygrid Restore")}}) {
            QProcess process;
            Start(process, program, variable, value);
            ASSERT_TRUE(process.waitForFinished(Patience));
            EXPECT_EQ(process.exitStatus(), QProcess::NormalExit);
            EXPECT_EQ(process.exitCode(), 1);
            const QStringList told =
                QString::fromUtf8(process.readAllStandardError()).split(QLatin1Char('\n'));
            // An empty one is behind the last line's end.
            EXPECT_EQ(told.value(told.size() - 2),
                      name +
                          QStringLiteral(" found no display to show its windows on. Please start "
                                         "it from the menus of your desktop, or from a terminal "
                                         "there."));
        }
    }

    inline static const QString Main = QStringLiteral("dutygrid");
    inline static const QString Restore = QStringLiteral("dutygrid_restore");

private:
    QTemporaryDir folder_;
    QProcessEnvironment surroundings_ = QProcessEnvironment::systemEnvironment();
};

TEST_F(NoDisplayTest, WithoutADisplayEachSaysSoAndEnds) {
    ExpectSentences();
}

TEST_F(NoDisplayTest, WithADisplayThatIsNotThereEachSaysSoAndEnds) {
    ExpectSentences(QStringLiteral("DISPLAY"), QStringLiteral(":4711"));
}

TEST_F(NoDisplayTest, WithoutWindowsThatAnybodySeesItRuns) {
    ASSERT_TRUE(QDir().mkdir(Path(QStringLiteral("Database"))));
    QProcess program;
    Start(program, Main, QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("offscreen"));
    ASSERT_TRUE(program.waitForStarted(Patience));
    const QString database = Path(QStringLiteral("Database/Charts.mdb"));
    EXPECT_TRUE(QTest::qWaitFor([&] { return QFile::exists(database); }, Patience));
    EXPECT_EQ(program.state(), QProcess::Running);
    program.kill();
    EXPECT_TRUE(program.waitForFinished(Patience));
}

} // namespace
