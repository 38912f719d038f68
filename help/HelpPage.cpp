#include "help/HelpPage.h"

#include "look/LookColors.h"
#include "platform/forms/Handlers.h"

#include <QDir>
#include <QFileInfo>
#include <QImage>
#include <QScrollBar>
#include <QUrl>
#include <algorithm>

namespace {

// Logical pixels.
constexpr int Margin = 20;
constexpr int SmallestPictureRoom = 120;
// Points.
constexpr qreal SmallestText = 7;
constexpr qreal LargestText = 28;

const QString Scheme = QStringLiteral("help");

/// The file beside a picture that holds it at twice the size.
QString TwiceAsLarge(const QString& path) {
    return QString(path).insert(path.lastIndexOf(QLatin1Char('.')), QStringLiteral("@2x"));
}

} // namespace

HelpPage::HelpPage(QWidget* parent) : QTextBrowser(parent) {
    setOpenLinks(false);
    setOpenExternalLinks(false);
    document()->setDocumentMargin(Margin);
    // Pictures follow the room there is: a bar that comes and goes would change it in turn.
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
    // A manual is read longer than a label.
    QFont larger = font();
    larger.setPointSizeF(larger.pointSizeF() + 1);
    setFont(larger);
    firstSize_ = larger.pointSizeF();
    On(this, &QTextBrowser::anchorClicked, this,
       [this](const QUrl& link) { GoTo(link.fragment()); });
    // Comes for every step in the history too.
    On(this, &QTextBrowser::sourceChanged, this, [this](const QUrl& source) {
        page_ = book_.PageOf(source.path());
        FindHits();
    });
}

void HelpPage::SetBook(const HelpBook& book) {
    book_ = book;
    home();
    // Another book may have a page of the same name.
    reload();
    clearHistory();
}

void HelpPage::GoTo(const QString& id) {
    const qsizetype page = book_.PageOf(id);
    if (page < 0)
        return;
    QUrl target;
    target.setScheme(Scheme);
    target.setPath(book_.Topics().at(page).Id);
    if (target.path() != id)
        target.setFragment(id);
    setSource(target);
}

void HelpPage::home() {
    GoTo(book_.Topics().constFirst().Id);
}

QVariant HelpPage::loadResource(int type, const QUrl& name) {
    if (type == QTextDocument::HtmlResource) {
        const qsizetype page = book_.PageOf(name.path());
        return page < 0 ? QString() : book_.Topics().at(page).Html;
    }
    if (type == QTextDocument::ImageResource) {
        // The program's own pictures come with a scheme, others with that of the page.
        const bool own = name.scheme() == QLatin1String("qrc");
        const QUrl written = own ? name : QUrl(name.path());
        pictures_.insert(written);
        pictureRoom_ = PictureRoom();
        return Picture(written);
    }
    return {};
}

/// A picture below the help file's folder or one of the program's own. Nothing is seen of one that
/// is missing.
QImage HelpPage::Picture(const QUrl& name) const {
    const QString path = name.scheme().isEmpty() ? QDir(book_.Folder()).filePath(name.path())
                                                 : QLatin1Char(':') + name.path();
    // A pipe would be waited for.
    QImage picture = QFileInfo(path).isFile() ? QImage(path) : QImage();
    if (picture.isNull()) {
        QImage nothing(1, 1, QImage::Format_ARGB32_Premultiplied);
        nothing.fill(Qt::transparent);
        return nothing;
    }
    const qreal ratio = devicePixelRatioF();
    const int shown = std::min(picture.width(), PictureRoom());
    if (ratio > 1.0)
        if (const QImage sharper(TwiceAsLarge(path)); !sharper.isNull())
            picture = sharper;
    if (shown != picture.width() || ratio != 1.0)
        picture = picture.scaledToWidth(qRound(shown * ratio), Qt::SmoothTransformation);
    picture.setDevicePixelRatio(ratio);
    return picture;
}

int HelpPage::PictureRoom() const {
    return std::max(SmallestPictureRoom, viewport()->width() - 2 * Margin);
}

void HelpPage::resizeEvent(QResizeEvent* event) {
    QTextBrowser::resizeEvent(event);
    if (PictureRoom() == pictureRoom_)
        return;
    pictureRoom_ = PictureRoom();
    for (const QUrl& name : std::as_const(pictures_))
        document()->addResource(QTextDocument::ImageResource, name, Picture(name));
    document()->markContentsDirty(0, document()->characterCount());
}

void HelpPage::Mark(const QStringList& words) {
    words_ = words;
    FindHits();
}

void HelpPage::FindHits() {
    hits_.clear();
    hit_ = -1;
    for (const QString& word : std::as_const(words_))
        for (QTextCursor at = document()->find(word); !at.isNull(); at = document()->find(word, at))
            hits_ += at;
    std::sort(hits_.begin(), hits_.end(), [](const QTextCursor& left, const QTextCursor& right) {
        return left.selectionStart() < right.selectionStart();
    });
    ShowHits();
}

void HelpPage::GoToHit(qsizetype hit) {
    hit_ = hit;
    ShowHits();
    QTextCursor place = hits_.at(hit);
    place.setPosition(place.selectionStart());
    setTextCursor(place);
    // In the upper third, so that what follows can be read.
    const QRect box = cursorRect(place);
    QScrollBar& bar = *verticalScrollBar();
    bar.setValue(bar.value() + box.top() - viewport()->height() / 3);
}

void HelpPage::ShowHits() {
    QList<ExtraSelection> marks;
    for (qsizetype hit = 0; hit < hits_.size(); ++hit) {
        ExtraSelection mark;
        mark.cursor = hits_.at(hit);
        mark.format.setBackground(hit == hit_ ? LookColors::FoundHere : LookColors::Found);
        mark.format.setForeground(palette().text());
        marks += mark;
    }
    setExtraSelections(marks);
}

void HelpPage::ChangeTextSize(int steps) {
    QFont changed = font();
    changed.setPointSizeF(
        steps == 0 ? firstSize_
                   : std::clamp(changed.pointSizeF() + steps, SmallestText, LargestText));
    setFont(changed);
}
