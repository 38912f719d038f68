#include "look/LookColors.h"
#include "platform/desktop/SystemDesktop.h"
#include "platform/desktop/SystemPrompts.h"
#include "tests/accessibility/Stage.h"
#include "tests/common/ApplicationState.h"
#include "tests/common/NextBox.h"
#include "widgets/PersonRows.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QAction>
#include <QApplication>
#include <QCalendarWidget>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QGroupBox>
#include <QHeaderView>
#include <QImage>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QMenuBar>
#include <QPainter>
#include <QPushButton>
#include <QStyleOptionGroupBox>
#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

// docs/look.md gives these, in logical pixels.
constexpr int AnswerWidth = 88;
constexpr int ButtonGap = 10;
constexpr int RowHeight = 28;
constexpr int LargeRowHeight = 40;

const QStringList Answers = {u"Ok"_s,  u"OK"_s, u"Cancel"_s, u"Exit"_s, u"Close"_s,
                             u"Yes"_s, u"No"_s, u"Log in"_s, u"Add"_s};

/// Not what has been scrolled away.
bool IsSeen(const QWidget& widget) {
    QRect place = widget.rect();
    const QWidget* inside = &widget;
    for (; !inside->isWindow() && inside->parentWidget() != nullptr;
         inside = inside->parentWidget())
        place = place.translated(inside->pos()) & inside->parentWidget()->rect();
    return widget.isVisible() && !place.isEmpty();
}

template <class Widget>
QList<Widget*> Seen(const QWidget& window) {
    QList<Widget*> seen;
    for (Widget* widget : window.findChildren<Widget*>())
        if (IsSeen(*widget))
            seen += widget;
    return seen;
}

QString RoleOf(const QWidget& widget) {
    return widget.property("role").toString();
}

QString CaptionOf(const QAbstractButton& button) {
    return button.text().remove(u'&');
}

std::string NameOf(const QWidget& widget) {
    const auto* button = qobject_cast<const QAbstractButton*>(&widget);
    return (button != nullptr ? CaptionOf(*button) : widget.objectName()).toStdString();
}

QRect PlaceIn(const QWidget& window, const QWidget& widget) {
    return {widget.mapTo(&window, QPoint()), widget.size()};
}

bool IsMain(const QPushButton& button) {
    return RoleOf(button) == u"primary"_s;
}

bool IsBeside(const QRect& one, const QRect& other) {
    return one.top() <= other.bottom() && other.top() <= one.bottom();
}

/// From the first to the last column that is not the ground's.
int InkWidth(const QImage& picture) {
    const QRgb ground = picture.pixel(0, 0);
    int first = picture.width();
    int last = -1;
    for (int x = 0; x < picture.width(); ++x)
        for (int y = 0; y < picture.height(); ++y)
            if (picture.pixel(x, y) != ground) {
                first = std::min(first, x);
                last = x;
            }
    return qRound((last - first + 1) / picture.devicePixelRatio());
}

int InkWidth(const QString& text, const QFont& face, int weight) {
    QFont font = face;
    font.setWeight(static_cast<QFont::Weight>(weight));
    return QFontMetrics(font).tightBoundingRect(text).width();
}

void ExpectHeadline(const QImage& picture, const QString& text, const QFont& face) {
    constexpr int smoothEdges = 2;
    ASSERT_GT(InkWidth(text, face, QFont::DemiBold),
              InkWidth(text, face, QFont::Normal) + smoothEdges)
        << text.toStdString();
    EXPECT_NEAR(InkWidth(picture), InkWidth(text, face, QFont::DemiBold), smoothEdges)
        << text.toStdString();
}

void ShortAnswersHaveOneWidth(const QWidget& form) {
    for (const QPushButton* button : Seen<QPushButton>(form))
        if (Answers.contains(CaptionOf(*button))) {
            EXPECT_EQ(button->width(), AnswerWidth) << NameOf(*button);
        }
}

void ButtonsOfARowHaveOneHeight(const QWidget& form) {
    const QList<QPushButton*> buttons = Seen<QPushButton>(form);
    for (const QPushButton* one : buttons)
        for (const QPushButton* other : buttons)
            if (one->parentWidget() == other->parentWidget() &&
                IsBeside(one->geometry(), other->geometry())) {
                EXPECT_EQ(one->height(), other->height()) << NameOf(*one) << ", " << NameOf(*other);
            }
}

void OneButtonGoesOnAtTheRightAndTheOneThatLeavesIsBesideIt(const QWidget& form) {
    const QList<QPushButton*> buttons = Seen<QPushButton>(form);
    QList<QPushButton*> main;
    std::copy_if(buttons.begin(), buttons.end(), std::back_inserter(main),
                 [](const QPushButton* button) { return IsMain(*button); });
    ASSERT_LE(main.size(), 1);
    if (main.isEmpty())
        return;
    const QRect place = PlaceIn(form, *main.first());
    EXPECT_GT(place.center().x(), form.width() / 2) << NameOf(*main.first());
    for (const QPushButton* button : buttons) {
        const QRect other = PlaceIn(form, *button);
        if (!IsBeside(place, other) || other.left() <= place.right())
            continue;
        EXPECT_TRUE(button->property("leaves").toBool()) << NameOf(*button);
        EXPECT_EQ(other.left() - place.right() - 1, ButtonGap) << NameOf(*button);
    }
}

void TitlesOfGroupsHaveOneWeight(const QWidget& form) {
    for (const QGroupBox* group : Seen<QGroupBox>(form)) {
        QStyleOptionGroupBox option;
        option.initFrom(group);
        option.text = group->title();
        option.subControls = QStyle::SC_GroupBoxFrame | QStyle::SC_GroupBoxLabel;
        QImage picture(group->size() * group->devicePixelRatioF(), QImage::Format_RGB32);
        picture.setDevicePixelRatio(group->devicePixelRatioF());
        picture.fill(Qt::white);
        QPainter painter(&picture);
        painter.setFont(group->font());
        group->style()->drawComplexControl(QStyle::CC_GroupBox, &option, &painter, group);
        const QRect title = group->style()->subControlRect(QStyle::CC_GroupBox, &option,
                                                           QStyle::SC_GroupBoxLabel, group);
        const qreal scale = group->devicePixelRatioF();
        QImage part = picture.copy(QRectF(title.topLeft() * scale, title.size() * scale).toRect());
        part.setDevicePixelRatio(scale);
        ExpectHeadline(part, group->title(), group->font());
    }
}

/// The weekly review's heads are in the face of its whole matrix.
void HeadsOfColumnsHaveOneWeight(const QWidget& form, const QString& name) {
    static const QHash<QString, int> painted = {{u"ChartEditor"_s, 5}, {u"ChartViewer"_s, 3}};
    int heads = 0;
    for (const QLabel* label : Seen<QLabel>(form))
        if (RoleOf(*label) == u"column"_s) {
            EXPECT_EQ(label->font().weight(), QFont::DemiBold) << NameOf(*label);
            ++heads;
        }
    EXPECT_EQ(heads, painted.value(name));
    static const QHash<QString, int> headers = {{u"LogIn"_s, 2}, {u"RestoreWindow"_s, 4}};
    int sections = 0;
    for (QHeaderView* header : Seen<QHeaderView>(form)) {
        if (header->inherits("QCalendarView"))
            continue;
        const QImage picture = header->viewport()->grab().toImage();
        for (int section = 0; section < header->count(); ++section) {
            // Without the edge below and the ones between.
            const QRect place(header->sectionViewportPosition(section) + 2, 2,
                              header->sectionSize(section) - 4, header->height() - 6);
            const qreal scale = picture.devicePixelRatio();
            QImage part =
                picture.copy(QRectF(place.topLeft() * scale, place.size() * scale).toRect());
            part.setDevicePixelRatio(scale);
            ++sections;
            ExpectHeadline(part, header->model()->headerData(section, Qt::Horizontal).toString(),
                           header->font());
        }
    }
    EXPECT_EQ(sections, headers.value(name));
    for (const auto* calendar : Seen<QCalendarWidget>(form)) {
        EXPECT_EQ(calendar->headerTextFormat().fontWeight(), QFont::DemiBold);
    }
}

/// A table of days and cards or pictures beside each other are no rows.
bool HasRows(const QAbstractItemView& view) {
    const auto* list = qobject_cast<const QListView*>(&view);
    return qobject_cast<const QHeaderView*>(&view) == nullptr && view.model() != nullptr &&
           view.model()->rowCount() > 0 &&
           (list == nullptr || list->viewMode() == QListView::ListMode) &&
           qobject_cast<const QCalendarWidget*>(view.parentWidget()) == nullptr;
}

void RowsOfListsHaveOneHeight(const QWidget& form) {
    for (const QAbstractItemView* view : Seen<QAbstractItemView>(form)) {
        if (!HasRows(*view))
            continue;
        // Those who cannot read find themselves by a picture, and beginners read large names.
        const bool isLarge = qobject_cast<PersonRows*>(view->itemDelegate()) != nullptr ||
                             RoleOf(*view) == u"large"_s;
        for (int row = 0; row < view->model()->rowCount(); ++row) {
            const QRect place = view->visualRect(view->model()->index(row, 0));
            if (!place.isEmpty()) {
                EXPECT_EQ(place.height(), isLarge ? LargeRowHeight : RowHeight)
                    << NameOf(*view) << " " << row;
            }
        }
    }
    for (QComboBox* combo : Seen<QComboBox>(form)) {
        if (combo->count() == 0)
            continue;
        combo->showPopup();
        Stage::WaitForRest();
        EXPECT_EQ(combo->view()->visualRect(combo->model()->index(0, 0)).height(), RowHeight)
            << NameOf(*combo);
        combo->hidePopup();
        // The boxes of a column are made by one hand.
        break;
    }
}

void LettersThatPressAreUnderlined(const QWidget& form) {
    for (QAbstractButton* button : Seen<QAbstractButton>(form))
        if (button->text().contains(u'&')) {
            const QImage marked = button->grab().toImage();
            const QString text = button->text();
            button->setText(CaptionOf(*button));
            EXPECT_NE(button->grab().toImage(), marked) << NameOf(*button);
            button->setText(text);
        }
    for (QLabel* label : Seen<QLabel>(form))
        if (label->buddy() != nullptr && label->text().contains(u'&')) {
            const QImage marked = label->grab().toImage();
            const QString text = label->text();
            label->setText(label->text().remove(u'&'));
            EXPECT_NE(label->grab().toImage(), marked) << NameOf(*label);
            label->setText(text);
        }
    for (QMenuBar* menus : Seen<QMenuBar>(*form.window()))
        for (QAction* menu : menus->actions()) {
            ASSERT_TRUE(menu->text().contains(u'&')) << menu->text().toStdString();
            const QImage marked = menus->grab().toImage();
            const QString text = menu->text();
            menu->setText(menu->text().remove(u'&'));
            EXPECT_NE(menus->grab().toImage(), marked) << text.toStdString();
            menu->setText(text);
        }
}

/// The forms that ask for something and are answered, by Ok and Cancel as a rule.
void WhatADialogAsksStandsOnACard(const QWidget& form, const QString& name) {
    static const QStringList dialogs = {u"LoginWindow"_s,
                                        u"NewUser"_s,
                                        u"ChangePasswordfrm"_s,
                                        u"Newfrm"_s,
                                        u"Openfrm"_s,
                                        u"DeleteChartForm"_s,
                                        u"ResetDate"_s,
                                        u"DisplayAllPeople"_s,
                                        u"OpenFillfrm"_s,
                                        u"DateRangefrm"_s,
                                        u"DateRangefrm with its calendar"_s,
                                        u"BackgroundOptions"_s,
                                        u"OtherOptions"_s};
    if (!dialogs.contains(name))
        return;
    QList<QRect> cards;
    for (const QFrame* frame : Seen<QFrame>(form))
        if (RoleOf(*frame) == u"card"_s && qobject_cast<const QLabel*>(frame) == nullptr)
            cards += PlaceIn(form, *frame);
    ASSERT_EQ(cards.size(), 1);
    int asked = 0;
    for (const QWidget* widget : Seen<QWidget>(form)) {
        const auto* button = qobject_cast<const QAbstractButton*>(widget);
        const bool isAsked = qobject_cast<const QLabel*>(widget) != nullptr ||
                             qobject_cast<const QLineEdit*>(widget) != nullptr ||
                             qobject_cast<const QAbstractItemView*>(widget) != nullptr ||
                             (button != nullptr && button->isCheckable());
        if (!isAsked)
            continue;
        ++asked;
        EXPECT_TRUE(cards.first().contains(PlaceIn(form, *widget))) << NameOf(*widget);
    }
    EXPECT_GE(asked, 1);
}

/// Every window of the program, held against the rules that all of them share.
class OneLookTest : public Stage, public testing::WithParamInterface<QString> {};

TEST_P(OneLookTest, KeepsTheRulesOfAllWindows) {
    const QWidget& form = Show(GetParam());
    ShortAnswersHaveOneWidth(form);
    ButtonsOfARowHaveOneHeight(form);
    OneButtonGoesOnAtTheRightAndTheOneThatLeavesIsBesideIt(form);
    TitlesOfGroupsHaveOneWeight(form);
    HeadsOfColumnsHaveOneWeight(form, GetParam());
    LettersThatPressAreUnderlined(form);
    WhatADialogAsksStandsOnACard(form, GetParam());
    RowsOfListsHaveOneHeight(form);
}

std::string WindowTestName(const testing::TestParamInfo<QString>& info) {
    return QString(info.param).replace(u' ', u'_').toStdString();
}

INSTANTIATE_TEST_SUITE_P(Windows, OneLookTest, testing::ValuesIn(Stage::Names()), WindowTestName);

/// What the toolkit brings stands as the forms do, whatever the desktop's own order is.
class BoxesLookTest : public FormTest {
protected:
    static void ExpectButtons(const QWidget& box, const QStringList& captions) {
        constexpr int beforeTheText = 9; // pixels, within the ring of the keyboard
        QList<QPushButton*> buttons = Seen<QPushButton>(*box.findChild<const QDialogButtonBox*>());
        std::sort(buttons.begin(), buttons.end(),
                  [](const QPushButton* one, const QPushButton* other) {
                      return one->x() + one->y() < other->x() + other->y();
                  });
        ASSERT_EQ(buttons.size(), captions.size());
        if (buttons.size() == 2) {
            const QRect first = buttons[0]->geometry();
            const QRect second = buttons[1]->geometry();
            EXPECT_EQ(std::max(second.left() - first.right(), second.top() - first.bottom()) - 1,
                      ButtonGap);
        }
        QStringList seen;
        for (QPushButton* button : buttons) {
            seen += CaptionOf(*button);
            EXPECT_EQ(button->width(), AnswerWidth) << NameOf(*button);
            EXPECT_GT(PlaceIn(box, *button).center().x(), box.width() / 2) << NameOf(*button);
            const QImage picture = button->grab().toImage();
            const QColor ground =
                picture.pixelColor(QPointF(beforeTheText, button->height() / 2.0).toPoint() *
                                   picture.devicePixelRatio());
            // Nothing can be opened before something is chosen.
            const QColor main = button->isEnabled() ? LookColors::Teal : LookColors::Band;
            EXPECT_EQ(ground, IsMain(*button) ? main : LookColors::Card) << NameOf(*button);
        }
        EXPECT_EQ(seen, captions);
        EXPECT_EQ(std::count_if(buttons.begin(), buttons.end(),
                                [](const QPushButton* button) { return IsMain(*button); }),
                  1);
    }

private:
    ToolkitDialogs dialogs_;
};

TEST_F(BoxesLookTest, MessagesAndQuestions) {
    const auto look = [](const Prompt& prompt, const QStringList& captions) {
        const NextBox next([&captions](QWidget& box) {
            ExpectButtons(box, captions);
            constexpr int margin = 18;
            const QRect text = Find<QLabel>(box, u"qt_msgbox_label"_s).geometry();
            EXPECT_EQ(text.left(), margin);
            EXPECT_EQ(text.top(), margin);
            const QRect buttons = box.findChild<QDialogButtonBox*>()->geometry();
            EXPECT_EQ(box.width() - buttons.right() - 1, margin);
            EXPECT_EQ(box.height() - buttons.bottom() - 1, margin);
            box.close();
        });
        SystemPrompts().Show(prompt);
    };
    Prompt prompt;
    // Two lines, which may take room from beside them.
    prompt.Text = u"Please click the 'Yes' button to print your Sparkit Dutygrid showing check "
                  "marks for those jobs that have been completed for the week."_s;
    look(prompt, {u"Ok"_s});
    prompt.Buttons = PromptButtons::YesNo;
    look(prompt, {u"Yes"_s, u"No"_s});
    prompt.BeginsOnNo = true;
    look(prompt, {u"Yes"_s, u"No"_s});
}

TEST_F(BoxesLookTest, FilesAndColours) {
    SystemDesktop desktop({});
    {
        const NextBox next([](QWidget& box) {
            ExpectButtons(box, {u"OK"_s, u"Cancel"_s});
            box.close();
        });
        EXPECT_FALSE(desktop.ChooseColor(255).has_value());
    }
    const NextBox next([](QWidget& box) {
        ExpectButtons(box, {u"Open"_s, u"Cancel"_s});
        box.close();
    });
    EXPECT_FALSE(desktop.OpenFile(Path(u"UsersPictures"_s)).has_value());
}

} // namespace
