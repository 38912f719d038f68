#pragma once

#include "help/HelpBook.h"

#include <QSet>
#include <QTextBrowser>
#include <QTextCursor>
#include <QUrl>

/// Shows one page of the help at a time, with its history of pages.
///
/// Pictures are made to fit the window, and are as sharp as the screen. The words of a search are
/// marked.
class HelpPage : public QTextBrowser {
    Q_OBJECT

public:
    explicit HelpPage(QWidget* parent = nullptr);

    /// Shows the first page of another book; the history starts anew.
    void SetBook(const HelpBook& book);
    const HelpBook& Book() const { return book_; }

    /// Goes to a page or a section. An id that is nowhere does nothing.
    void GoTo(const QString& id);
    /// Goes to the first page.
    void home() override;
    /// The number of the page shown, -1 if there is none.
    qsizetype Page() const { return page_; }

    /// The words to mark on this page and on those to come.
    void Mark(const QStringList& words);
    qsizetype HitCount() const { return hits_.size(); }
    /// The number of the hit gone to last, -1 if none on this page.
    qsizetype Hit() const { return hit_; }
    void GoToHit(qsizetype hit);

    /// Makes the text larger by so many steps, smaller by negative ones; 0 brings back the size it
    /// had at first.
    void ChangeTextSize(int steps);

protected:
    QVariant loadResource(int type, const QUrl& name) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    QImage Picture(const QUrl& name) const;
    int PictureRoom() const;
    void FindHits();
    void ShowHits();

    HelpBook book_;
    qsizetype page_ = -1;
    QStringList words_;
    QList<QTextCursor> hits_;
    qsizetype hit_ = -1;
    QSet<QUrl> pictures_; ///< all that have been shown
    int pictureRoom_ = 0;
    qreal firstSize_;
};
