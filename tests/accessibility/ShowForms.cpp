#include "look/ProgramStyle.h"
#include "platform/desktop/SystemPrompts.h"
#include "platform/printing/PrintNews.h"
#include "tests/accessibility/Stage.h"

#include <QAbstractButton>
#include <QApplication>
#include <QImage>
#include <QPointer>
#include <QSocketNotifier>
#include <QTest>
#include <QTimer>
#include <cstdio>
#include <iostream>
#include <unistd.h>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

/// Shows forms and presses keys as told, one command a line:
///
///     names                 the forms that can be shown
///     show NAME             shows a form in a fresh world; answers with its caption
///     box ok|yesno          puts up a message box; answers with its title
///     key COUNT KEY...      presses a combination such as "Shift+Tab" so many times
///     hold KEY              presses a key on a button and takes the press back; answers "taken" if
///                           the button went down
///     look                  takes a picture of the window
///     changed X Y W H       how many pixels differ between the last two pictures in there, by the
///                           screen's coordinates
///     print PRINTER         tells that a printer has pages
///     pictures              how many pictures of incentives there are
///     told                  the message boxes shown and web pages opened since the form was shown
///
/// Each is answered with one line that begins with "> " when the program has come to rest.
class Driver : public QObject {
public:
    Driver() : input_(STDIN_FILENO, QSocketNotifier::Read) {
        connect(&input_, &QSocketNotifier::activated, this, [this] { Read(); });
    }

private:
    void Read() {
        char piece[512];
        const ssize_t length = read(STDIN_FILENO, piece, sizeof piece);
        if (length <= 0) {
            QApplication::exit();
            return;
        }
        buffer_.append(piece, length);
        const qsizetype end = buffer_.indexOf('\n');
        if (end < 0)
            return;
        const QString line = QString::fromUtf8(buffer_.left(end));
        buffer_.remove(0, end + 1);
        try {
            Obey(line.section(u' ', 0, 0), line.section(u' ', 1));
        } catch (const std::exception& error) {
            Answer(u"failed: "_s + QString::fromLocal8Bit(error.what()));
        }
    }

    static void Answer(const QString& text) {
        std::cout << "> " << text.toStdString() << std::endl;
    }

    void Obey(const QString& command, const QString& argument) {
        if (command == u"names"_s) {
            Answer(Stage::Names().join(u'|'));
        } else if (command == u"show"_s) {
            Answer(Show(argument));
        } else if (command == u"box"_s) {
            ShowBox(argument == u"yesno"_s ? PromptButtons::YesNo : PromptButtons::Ok);
        } else if (command == u"key"_s) {
            PressKeys(argument.section(u' ', 0, 0).toInt(), argument.section(u' ', 1));
            Answer(u"done"_s);
        } else if (command == u"hold"_s) {
            Answer(Hold(argument));
        } else if (command == u"look"_s) {
            before_ = std::exchange(after_, Picture());
            Answer(u"done"_s);
        } else if (command == u"changed"_s) {
            const QStringList n = argument.split(u' ');
            Answer(
                QString::number(Changed({n[0].toInt(), n[1].toInt(), n[2].toInt(), n[3].toInt()})));
        } else if (command == u"print"_s) {
            TellPrintNews({.Printer = argument});
            Answer(u"done"_s);
        } else if (command == u"pictures"_s) {
            Answer(QString::number(Stage::PictureFiles().size()));
        } else if (command == u"told"_s) {
            Answer(stage_->Told().join(u'|'));
        } else {
            Answer(u"failed: unknown command "_s + command);
        }
    }

    void SetTheStage() {
        stage_.reset();
        // The window manager hands the keyboard round when the old windows go, which is not to
        // happen among the new ones.
        Stage::WaitForRest();
        stage_ = std::make_unique<Stage>();
    }

    QString Show(const QString& name) {
        SetTheStage();
        QWidget& form = stage_->Show(name);
        WatchButtons(*form.window());
        return form.accessibleName().isEmpty() ? form.windowTitle() : form.accessibleName();
    }

    void WatchButtons(const QWidget& window) {
        for (QAbstractButton* button : window.findChildren<QAbstractButton*>())
            connect(button, &QAbstractButton::pressed, this, [this, button] { pressed_ = button; });
    }

    /// The box stands in an event loop of its own, in which the commands go on.
    void ShowBox(PromptButtons buttons) {
        SetTheStage();
        stage_->Show(u"LogIn"_s);
        QTimer::singleShot(0, this, [this, buttons] {
            Prompt prompt;
            prompt.Text = u"Are you sure you want to delete this account?"_s;
            prompt.Buttons = buttons;
            QTimer::singleShot(0, this, [this] { AnswerWhenBoxStands(); });
            SystemPrompts().Show(prompt);
        });
    }

    void AnswerWhenBoxStands() {
        QWidget* box = QApplication::activeModalWidget();
        if (box != nullptr && QApplication::activeWindow() == box) {
            WatchButtons(*box);
            Answer(box->windowTitle());
        } else {
            QTimer::singleShot(10, this, [this] { AnswerWhenBoxStands(); });
        }
    }

    static void PressKeys(int count, const QString& keys) {
        const QKeyCombination combination = QKeySequence(keys)[0];
        for (int pressed = 0; pressed < count; ++pressed)
            QTest::keyClick(Target(), combination.key(), combination.keyboardModifiers());
        QCoreApplication::processEvents();
    }

    QString Hold(const QString& keys) {
        pressed_ = nullptr;
        const Qt::Key key = QKeySequence(keys)[0].key();
        QTest::keyPress(Target(), key);
        const bool taken = pressed_ != nullptr && pressed_->isDown();
        if (taken)
            pressed_->setDown(false);
        QTest::keyRelease(Target(), key);
        return taken ? u"taken"_s : QString();
    }

    static QWindow* Target() {
        if (const QWidget* popup = QApplication::activePopupWidget())
            return popup->windowHandle();
        if (!QTest::qWaitFor([] { return QGuiApplication::focusWindow() != nullptr; }, Patience))
            throw std::runtime_error("no window has the keyboard");
        return QGuiApplication::focusWindow();
    }

    QImage Picture() {
        QWidget* window = QApplication::activeWindow();
        if (window == nullptr)
            return {};
        origin_ = window->mapToGlobal(QPoint());
        return window->grab().toImage();
    }

    int Changed(const QRect& onScreen) const {
        if (before_.size() != after_.size())
            return 0;
        const QRect area = onScreen.translated(-origin_).intersected(before_.rect());
        int pixels = 0;
        for (int y = area.top(); y <= area.bottom(); ++y)
            for (int x = area.left(); x <= area.right(); ++x)
                pixels += before_.pixel(x, y) != after_.pixel(x, y) ? 1 : 0;
        return pixels;
    }

    QSocketNotifier input_;
    QByteArray buffer_;
    std::unique_ptr<Stage> stage_;
    QPointer<QAbstractButton> pressed_;
    QImage before_;
    QImage after_;
    QPoint origin_;
};

} // namespace

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    QApplication::setApplicationName(u"accessibility_forms"_s);
    QApplication::setFont(QFont(u"DejaVu Sans"_s, 10));
    QApplication::setQuitOnLastWindowClosed(false);
    // A caret that blinks would pass for a change of its box.
    QApplication::setCursorFlashTime(0);
    ApplyProgramStyle(application);
    const Driver driver;
    return QApplication::exec();
}
