#include "restore/RestoreWindow.h"

#include "platform/forms/FormKeys.h"
#include "platform/forms/Handlers.h"
#include "platform/runtime/Prompts.h"
#include "store/ProgramFiles.h"
#include "store/PutBack.h"

#include <QAccessibleWidget>
#include <QApplication>
#include <QFileInfo>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>
#include <QScreen>
#include <QShortcut>
#include <QStackedWidget>
#include <QTreeWidget>
#include <QVBoxLayout>

namespace {

enum Column { Day, Accounts, Charts, PastWeeks, ColumnCount };

QAccessibleInterface* MakeRestoreAccess(const QString& key, QObject* object) {
    return key == QLatin1String("RestoreWindow")
               ? new QAccessibleWidget(static_cast<QWidget*>(object), QAccessible::Window)
               : nullptr;
}

QLabel* MakeLabel(const QString& name, const char* role, const QString& text = QString()) {
    auto* label = new QLabel(text);
    label->setObjectName(name);
    label->setProperty("role", QString::fromLatin1(role));
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(true);
    return label;
}

QString Contents(const CopySummary& holds) {
    return QStringLiteral("%1, %2 and %3")
        .arg(Counted(holds.Accounts.size(), QStringLiteral("account"), QStringLiteral("accounts")),
             Counted(holds.Charts.size(), QStringLiteral("chart"), QStringLiteral("charts")),
             Counted(holds.PastWeeks, QStringLiteral("past week"), QStringLiteral("past weeks")));
}

QString Now(const CopySummary& now) {
    if (now.Fault.isEmpty())
        return QStringLiteral("Now there are %1.").arg(Contents(now));
    const QFileInfo file(DatabaseFile());
    if (!file.exists() && !file.isSymLink())
        return QStringLiteral("The file with your accounts and Dutygrids is missing.");
    if (QFileInfo(DatabaseFile() + QStringLiteral("-journal")).size() > 0)
        return QStringLiteral("The program was interrupted while it stored something. Start it "
                              "first: it tidies up by itself.");
    return QStringLiteral("The file with your accounts and Dutygrids cannot be read: it is "
                          "damaged, or you may not open it.");
}

QTreeWidgetItem* Line(const QString& title, const CopySummary& holds) {
    auto* line = new QTreeWidgetItem;
    line->setText(Day, title);
    if (holds.Fault.isEmpty()) {
        line->setText(Accounts, QString::number(holds.Accounts.size()));
        line->setText(Charts, QString::number(holds.Charts.size()));
        line->setText(PastWeeks, QString::number(holds.PastWeeks));
    } else {
        line->setText(Accounts, QStringLiteral("unreadable"));
    }
    for (const int column : {Accounts, Charts, PastWeeks})
        line->setTextAlignment(column, Qt::AlignCenter);
    const QString words = holds.Fault.isEmpty() ? Contents(holds) : QStringLiteral("unreadable");
    line->setData(Day, Qt::AccessibleTextRole, QStringLiteral("%1: %2").arg(title, words));
    return line;
}

} // namespace

RestoreWindow::RestoreWindow() {
    // A plain widget would be passed over as filling.
    QAccessible::installFactory(MakeRestoreAccess);
    setWindowTitle(QStringLiteral("Sparkit Dutygrid Restore"));
    MakeControls();
    Refresh();
    On(copies_, &QTreeWidget::currentItemChanged, this, [this] { ShowChosen(); });
    On(putBack_, &QPushButton::clicked, this, [this] { PutBack_Click(); });
    On(copies_, &QTreeWidget::itemActivated, this, [this] { PutBack_Click(); });
    On(close_, &QPushButton::clicked, this, [this] { close(); });
    // Not by the event itself: the list would look for a row that begins with Escape.
    On(new QShortcut(QKeySequence::Cancel, this), &QShortcut::activated, this, [this] {
        PressFormButton(*this, QKeyEvent(QEvent::KeyPress, Qt::Key_Escape, Qt::NoModifier));
    });
}

void RestoreWindow::MakeControls() {
    copies_ = new QTreeWidget;
    copies_->setObjectName(QStringLiteral("Copies"));
    copies_->setAccessibleName(QStringLiteral("Copies of earlier days"));
    copies_->setHeaderLabels({QStringLiteral("Day"), QStringLiteral("Accounts"),
                              QStringLiteral("Charts"), QStringLiteral("Past weeks")});
    copies_->setRootIsDecorated(false);
    copies_->setUniformRowHeights(true);
    copies_->setAllColumnsShowFocus(true);
    QHeaderView& header = *copies_->header();
    header.setStretchLastSection(false);
    header.setSectionsClickable(false);
    header.setSectionsMovable(false);
    header.setSectionResizeMode(QHeaderView::ResizeToContents);
    header.setSectionResizeMode(Day, QHeaderView::Stretch);
    for (const int column : {Accounts, Charts, PastWeeks})
        copies_->headerItem()->setTextAlignment(column, Qt::AlignCenter);

    auto* none = MakeLabel(
        QStringLiteral("NoCopies"), "question",
        QStringLiteral("There are no copies yet.\n\nSparkit Dutygrid makes one before the first "
                       "change of each day."));
    none->setAlignment(Qt::AlignCenter);
    auto* emptyCard = new QFrame;
    emptyCard->setProperty("role", QStringLiteral("card"));
    auto* emptyRoom = new QVBoxLayout(emptyCard);
    emptyRoom->setContentsMargins(20, 20, 20, 20);
    emptyRoom->addWidget(none);
    middle_ = new QStackedWidget;
    middle_->addWidget(copies_);
    middle_->addWidget(emptyCard);

    auto* card = new QFrame;
    card->setProperty("role", QStringLiteral("card"));
    difference_ = MakeLabel(QStringLiteral("Difference"), "");
    difference_->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    // Room for a sentence of three lines, so that nothing moves as copies are chosen.
    difference_->setMinimumHeight(3 * fontMetrics().lineSpacing());
    auto* cardRoom = new QVBoxLayout(card);
    cardRoom->setContentsMargins(14, 14, 14, 14);
    cardRoom->addWidget(difference_);

    putBack_ = new QPushButton(QStringLiteral("&Put this day back..."));
    putBack_->setObjectName(QStringLiteral("PutBack"));
    putBack_->setProperty("role", QStringLiteral("primary"));
    close_ = new QPushButton(QStringLiteral("&Close"));
    close_->setObjectName(QStringLiteral("Close"));
    close_->setProperty("leaves", true);
    auto* buttons = new QHBoxLayout;
    buttons->setSpacing(10);
    buttons->addStretch();
    buttons->addWidget(putBack_);
    buttons->addWidget(close_);

    today_ = MakeLabel(QStringLiteral("Today"), "hint");
    auto* room = new QVBoxLayout(this);
    room->setContentsMargins(18, 16, 18, 16);
    room->setSpacing(12);
    room->addWidget(
        MakeLabel(QStringLiteral("Heading"), "heading", QStringLiteral("Get back an earlier day")));
    room->addWidget(today_);
    room->addWidget(middle_, 1);
    room->addWidget(card);
    room->addLayout(buttons);
    resize(QSize(560, 480).boundedTo(screen()->availableSize()));
}

void RestoreWindow::Refresh() {
    now_ = SummaryNow();
    entries_.clear();
    copies_->clear();
    for (const QString& name : CopyNames()) {
        entries_ += {name, SummaryOfCopy(name)};
        const Entry& entry = entries_.constLast();
        QTreeWidgetItem* line = Line(CopyTitle(name), entry.Holds);
        // Who hears the list does not see what changes below it.
        if (entry.Holds.Fault.isEmpty())
            line->setData(Day, Qt::AccessibleDescriptionRole, Difference(entry));
        copies_->addTopLevelItem(line);
    }
    middle_->setCurrentIndex(entries_.isEmpty() ? 1 : 0);
    difference_->parentWidget()->setVisible(!entries_.isEmpty());
    today_->setText(Now(now_));
    copies_->setCurrentItem(copies_->topLevelItem(0));
    ShowChosen();
    (entries_.isEmpty() ? static_cast<QWidget*>(close_) : copies_)->setFocus();
}

const RestoreWindow::Entry* RestoreWindow::Chosen() const {
    const int line = copies_->indexOfTopLevelItem(copies_->currentItem());
    return line < 0 ? nullptr : &entries_[line];
}

QString RestoreWindow::Difference(const Entry& entry) const {
    if (!now_.Fault.isEmpty())
        return QStringLiteral("It holds %1.").arg(Contents(entry.Holds));
    const QString difference = DifferenceOf(entry.Holds, now_);
    if (difference.isEmpty())
        return QStringLiteral("The same accounts, charts, past weeks and points as now.");
    return QStringLiteral("Compared with now: %1.").arg(difference);
}

void RestoreWindow::ShowChosen() {
    const Entry* entry = Chosen();
    const bool isUsable = entry != nullptr && entry->Holds.Fault.isEmpty();
    putBack_->setEnabled(isUsable);
    if (isUsable)
        difference_->setText(Difference(*entry));
    else
        difference_->setText(entry == nullptr
                                 ? QString()
                                 : QStringLiteral("This copy cannot be read. Please choose "
                                                  "another one."));
}

void RestoreWindow::PutBack_Click() {
    const Entry* entry = Chosen();
    if (entry == nullptr || !entry->Holds.Fault.isEmpty())
        return;
    const QString name = entry->Name;
    Prompt question{QStringLiteral("Put back all accounts and Dutygrids as they were on %1?\n\n"
                                   "%2\n\nWhat is stored now is kept as a copy in this list.")
                        .arg(CopyTitle(name), Difference(*entry))};
    question.Buttons = PromptButtons::YesNo;
    question.Icon = PromptIcon::Exclamation;
    question.BeginsOnNo = true;
    if (ShowPrompt(question) != PromptAnswer::Yes)
        return;
    QApplication::setOverrideCursor(Qt::WaitCursor);
    try {
        PutCopyBack(name);
        QApplication::restoreOverrideCursor();
        Tell(QStringLiteral("Everything is as it was on %1. You can start Sparkit Dutygrid now.")
                 .arg(CopyTitle(name)));
    } catch (const RuntimeError& error) {
        QApplication::restoreOverrideCursor();
        QStringList words{IsPuttingBack()
                              ? QStringLiteral("A copy has been put back only in part. When what "
                                               "stands below is mended, start Sparkit Dutygrid: "
                                               "it puts back the rest by itself.")
                              : QStringLiteral("The copy was not put back."),
                          error.Text()};
        if (!error.Advice().isEmpty())
            words += error.Advice();
        Tell(words.join(QStringLiteral("\n\n")), PromptIcon::Critical);
    }
    Refresh();
}
