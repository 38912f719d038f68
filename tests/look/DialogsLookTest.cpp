#include "platform/desktop/SystemDesktop.h"
#include "platform/desktop/SystemPrompts.h"
#include "shell/MainForm.h"
#include "tests/common/ApplicationState.h"
#include "tests/common/NextBox.h"
#include "tests/common/Pictures.h"
#include "tests/look/LookTest.h"

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QFileDialog>
#include <QLabel>
#include <QListView>
#include <QMenuBar>
#include <QPushButton>
#include <QTest>
#include <algorithm>
#include <functional>

namespace {

/// What the toolkit brings: message boxes, menus, the dialogs for files and colours.
class DialogsLookTest : public LookTest {
protected:
    /// Takes a picture of the dialog that is shown, looks it over and dismisses it.
    static void LookAtShown(const QString& name, const std::function<void()>& show) {
        const NextBox next([&name](QWidget& dialog) {
            Settle();
            // The other dialog tells of folders and times.
            if (qobject_cast<QFileDialog*>(&dialog) == nullptr)
                LookAt(dialog, name);
            for (const QLabel* label : dialog.findChildren<QLabel*>())
                if (label->isVisible() && !label->text().isEmpty()) {
                    EXPECT_TRUE(dialog.rect().contains(
                        QRect(label->mapTo(&dialog, QPoint()), label->size())))
                        << label->text().toStdString();
                    // The toolkit rounds the height of a wrapped text to device pixels.
                    EXPECT_GE(label->height() + 1, label->wordWrap()
                                                       ? label->heightForWidth(label->width())
                                                       : label->fontMetrics().height());
                }
            for (const QPushButton* button : dialog.findChildren<QPushButton*>())
                if (button->isVisible()) {
                    EXPECT_GE(button->width(), button->minimumSizeHint().width());
                }
            dialog.close();
        });
        show();
    }
};

TEST_F(DialogsLookTest, MessageBoxes) {
    MakeFamily();
    StartSession(u"Mum"_s, u"Teacher"_s);
    const auto show = [](const Prompt& prompt) {
        return [&prompt] { SystemPrompts().Show(prompt); };
    };
    Prompt message;
    message.Text = u"Please try another name, this one already exists."_s;
    LookAtShown(u"Box-message"_s, show(message));
    message.Icon = PromptIcon::Exclamation;
    LookAtShown(u"Box-exclamation"_s, show(message));
    message.Icon = PromptIcon::Critical;
    message.Text = RuntimeError(ErrorNumber::Overflow).Report();
    LookAtShown(u"Box-error"_s, show(message));
    Prompt question;
    question.Text =
        u"Please click the 'Yes' button to print your Sparkit Dutygrid showing check marks for "_s +
        u"those jobs that have been completed for the week."_s;
    question.Buttons = PromptButtons::YesNo;
    LookAtShown(u"Box-question"_s, show(question));
}

TEST_F(DialogsLookTest, DialogsForFilesAndColours) {
    const ToolkitDialogs dialogs;
    MakeFamily();
    StartSession(u"Mum"_s, u"Teacher"_s);
    SystemDesktop desktop({});
    LookAtShown(u"Dialog-file"_s, [&desktop] {
        EXPECT_FALSE(desktop.OpenFile(Path(u"UsersPictures"_s)).has_value());
    });
    LookAtShown(u"Dialog-colour"_s,
                [&desktop] { EXPECT_FALSE(desktop.ChooseColor(255).has_value()); });
}

TEST_F(DialogsLookTest, PicturesToChooseFrom) {
    QDir().mkpath(Path(u"Few"_s));
    for (const QString& name : {u"Bee.png"_s, u"Fox.png"_s, u"Owl.png"_s, u"Rocket.png"_s})
        ASSERT_TRUE(QFile::copy(Path(u"UsersPictures/"_s + name), Path(u"Few/"_s + name)));
    SystemDesktop desktop({});
    const NextBox next([](QWidget& box) {
        auto& grid = Find<QListView>(box, u"listView"_s);
        const auto count = [&grid] { return grid.model()->rowCount(grid.rootIndex()); };
        EXPECT_TRUE(QTest::qWaitFor([&] { return count() == 4; }, Patience));
        grid.setCurrentIndex(grid.model()->index(1, 0, grid.rootIndex()));
        EXPECT_EQ(grid.iconSize(), QSize(72, 72));
        for (const QString& low : {u"lookInCombo"_s, u"fileNameEdit"_s, u"fileTypeCombo"_s})
            EXPECT_NEAR(Find(box, low).height(), 24, 1) << low.toStdString();
        // All around them stand folders of this machine.
        const QList<QLabel*> labels = box.findChildren<QLabel*>();
        const auto preview = std::find_if(labels.begin(), labels.end(), [](const QLabel* label) {
            return label->accessibleName() == u"Preview of the picture"_s;
        });
        ASSERT_NE(preview, labels.end());
        const auto placeOf = [&box](const QWidget& part) {
            return QRect(part.mapTo(&box, QPoint()), part.size());
        };
        const QRect both = placeOf(grid) | placeOf(**preview);
        ExpectPicture([&] { return box.grab(both).toImage(); }, u"Dialog-pictures"_s);
        box.close();
    });
    EXPECT_FALSE(desktop.OpenFile(Path(u"Few"_s)).has_value());
}

TEST_F(DialogsLookTest, Menus) {
    MakeFamily();
    StartSession(u"Mum"_s, u"Teacher"_s);
    auto& window = Default<MainForm>();
    window.menuBar()->setActiveAction(window.menuBar()->actions().first());
    Settle();
    QWidget* menu = QApplication::activePopupWidget();
    ASSERT_NE(menu, nullptr);
    LookAt(*menu, u"Menu-file"_s);
    EXPECT_GE(menu->width(), menu->sizeHint().width());
    menu->close();
}

} // namespace
