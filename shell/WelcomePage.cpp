#include "shell/WelcomePage.h"

#include "platform/forms/Handlers.h"
#include "shell/LogoPicture.h"
#include "shell/WelcomeStep.h"

#include <QAction>
#include <QFrame>
#include <QLabel>
#include <QVBoxLayout>
#include <algorithm>

namespace {

// Pixels.
constexpr int Margin = 24;
constexpr int LogoGap = 20;
constexpr int StepGap = 8;
const QSize LogoSize(300, 100);

QLabel* NewLine(const QString& text, const QString& role, QWidget* card) {
    auto* line = new QLabel(text, card);
    line->setTextFormat(Qt::PlainText);
    line->setProperty("role", role);
    return line;
}

} // namespace

WelcomePage::WelcomePage(QWidget* parent)
    : QWidget(parent), layout_(new QVBoxLayout(this)), logo_(new QLabel(this)) {
    layout_->setContentsMargins({});
    layout_->setSpacing(LogoGap);
    layout_->addWidget(logo_, 0, Qt::AlignHCenter);
    hide();
}

void WelcomePage::SetGreeting(const Greeting& greeting) {
    // What stays the same keeps the keyboard.
    if (greeting == greeting_)
        return;
    greeting_ = greeting;
    delete card_;
    MakeCard();
}

void WelcomePage::MakeCard() {
    card_ = new QFrame(this);
    card_->setProperty("role", QStringLiteral("welcome"));
    auto* lines = new QVBoxLayout(card_);
    lines->setContentsMargins(Margin, Margin, Margin, Margin);
    lines->setSpacing(StepGap);
    lines->addWidget(NewLine(greeting_.greeting, QStringLiteral("greeting"), card_));
    lines->addWidget(NewLine(greeting_.question, QStringLiteral("question"), card_));
    for (const Greeting::Step& step : greeting_.steps) {
        auto* button = new WelcomeStep(step, card_);
        // The account may have changed since the page was made.
        On(button, &QPushButton::clicked, this, [command = step.command] {
            if (command->isVisible())
                command->trigger();
        });
        lines->addWidget(button);
    }
    layout_->addWidget(card_);
    card_->show();
}

void WelcomePage::ShowIn(const QRect& area, bool wantsLogo) {
    if (card_ == nullptr)
        return;
    card_->ensurePolished();
    for (QWidget* line : card_->findChildren<QWidget*>())
        line->ensurePolished();
    const QSize card = card_->sizeHint();
    if (card.height() > area.height()) {
        hide();
        return;
    }
    const int withLogo = LogoSize.height() + LogoGap + card.height();
    const bool hasLogo = wantsLogo && withLogo + 2 * Margin <= area.height();
    // Not before: the page is made at the program's start, and rarely is there room at once.
    if (hasLogo && logo_->pixmap().isNull())
        logo_->setPixmap(LogoPicture(*this, LogoSize));
    logo_->setVisible(hasLogo);
    QRect place(0, 0, std::min(card.width(), area.width() - Margin),
                hasLogo ? withLogo : card.height());
    place.moveCenter(area.center());
    setGeometry(place);
    show();
}

bool WelcomePage::TakeKeyboard() {
    auto* first = findChild<WelcomeStep*>();
    if (first == nullptr || !isVisible())
        return false;
    first->setFocus(Qt::TabFocusReason);
    return true;
}
