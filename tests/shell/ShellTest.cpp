#include "tests/shell/ShellTest.h"
#include "tests/common/ActiveWindow.h"

#include <QFile>
#include <QLabel>
#include <QPushButton>
#include <QTest>
#include <QToolBar>

void ShellTest::PutSettings(const QStringList& lines) {
    QFile file(Path(QStringLiteral("Settings/Settings.txt")));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    for (const QString& line : lines)
        file.write(line.toUtf8() + "\r\n");
}

void ShellTest::PutSettings(bool school, qint32 color) {
    PutSettings({QStringLiteral(" 0 "), QString(), QStringLiteral(" %1 ").arg(color),
                 school ? QStringLiteral(" 1 ") : QStringLiteral(" 0 "), QStringLiteral(" 1 ")});
}

void ShellTest::MakeSettingsReadOnly() {
    // A new file is written beside it under a longer name first, which no file system takes.
    const QString file = Path(QStringLiteral("Settings/Settings.txt"));
    const QString longest = Path(QStringLiteral("Settings/") + QString(255, QLatin1Char('s')));
    ASSERT_TRUE(QFile::rename(file, longest));
    ASSERT_TRUE(QFile::link(longest, file));
}

QByteArray ShellTest::SettingsBytes() {
    QFile file(Path(QStringLiteral("Settings/Settings.txt")));
    EXPECT_TRUE(file.open(QIODevice::ReadOnly));
    return file.readAll();
}

QStringList ShellTest::SettingsLines() {
    QStringList lines = QString::fromUtf8(SettingsBytes()).split(QStringLiteral("\r\n"));
    EXPECT_TRUE(lines.takeLast().isEmpty()) << "the file ends with a line's end";
    return lines;
}

void ShellTest::WaitForActive(QWidget& form) {
    EXPECT_TRUE(BecomesActive(form));
    Settle();
}

LogIn& ShellTest::ShowLogIn() {
    auto& form = Default<LogIn>();
    form.Show();
    return InFront(form);
}

HeadedList& ShellTest::Teachers() {
    return Find<HeadedList>(Default<LogIn>(), QStringLiteral("TeachersList"));
}

HeadedList& ShellTest::Students() {
    return Find<HeadedList>(Default<LogIn>(), QStringLiteral("StudentsList"));
}

QStringList ShellTest::Names(const HeadedList& list) {
    QStringList names;
    for (int row = 0; row < list.topLevelItemCount(); ++row)
        names += list.topLevelItem(row)->text(0);
    return names;
}

void ShellTest::OpenNewUser() {
    Click(Find(Default<LogIn>(), QStringLiteral("NewUserbtn")));
    WaitForActive(DefaultForm(QStringLiteral("NewUser")).Widget());
}

void ShellTest::BackFromNewUser() {
    Click(Find(DefaultForm(QStringLiteral("NewUser")).Widget(), QStringLiteral("Cancel")));
    WaitForActive(Default<LogIn>());
}

LoginWindow& ShellTest::OpenLoginWindow(HeadedList& list, int row) {
    ClickRow(list, row);
    Click(Find(Default<LogIn>(), QStringLiteral("LogInbtn")));
    return PasswordForm();
}

MainForm& ShellTest::LogInAs(HeadedList& list, int row, const QString& password) {
    LoginWindow& window = OpenLoginWindow(list, row);
    Type(Find(window, QStringLiteral("Password")), password);
    Click(Find(window, QStringLiteral("Ok")));
    return InFront(MainWindow());
}

LoginWindow& ShellTest::PasswordForm() {
    if (!IsShown(QStringLiteral("LoginWindow")))
        throw std::runtime_error("the password form is not shown");
    return InFront(Default<LoginWindow>());
}

MainForm& ShellTest::MainWindow() {
    return Default<MainForm>();
}

bool ShellTest::IsShown(const QString& form) {
    const Form* existing = ExistingForm(form);
    return existing != nullptr && existing->Frame().isVisible();
}

void ShellTest::Choose(QLatin1String menuEntry) {
    QAction& entry = MainWindow().MenuEntry(menuEntry);
    ASSERT_TRUE(entry.isVisible() && entry.isEnabled()) << menuEntry.data();
    entry.trigger();
    Settle();
}

void ShellTest::Push(QLatin1String toolbarKey) {
    QAction& button = MainWindow().ToolbarButton(toolbarKey);
    QWidget* face =
        Find<QToolBar>(MainWindow(), QStringLiteral("KidToolbar")).widgetForAction(&button);
    ASSERT_TRUE(face != nullptr && face->isVisible() && face->isEnabled()) << toolbarKey.data();
    Click(*face);
}

ChartEditor& ShellTest::OpenEditor(const QString& chart) {
    Push(QLatin1String("New"));
    const QWidget& form = DefaultForm(QStringLiteral("Newfrm")).Widget();
    Type(Find(form, QStringLiteral("NameOfNewChart")), chart);
    Click(Find(form, QStringLiteral("Ok")));
    auto* editor = dynamic_cast<ChartEditor*>(ChartEditors.Peek(ChartFormIndex - 1));
    if (editor == nullptr)
        throw std::runtime_error("no chart editor came");
    return *editor;
}

QColor ShellTest::ColorOfLabel(const QWidget& form, const QString& name) {
    const QPixmap pixmap = Find<QLabel>(form, name).pixmap();
    return pixmap.isNull() ? QColor() : pixmap.toImage().pixelColor(pixmap.rect().center());
}
