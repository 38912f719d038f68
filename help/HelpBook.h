#pragma once

#include <QList>
#include <QString>
#include <QStringList>

/// A part of a page that can be gone to.
struct HelpSection {
    QString Id;
    QString Title;
};

/// One page of the help.
struct HelpTopic {
    QString Id;
    QString Title;
    QString Html;
    QString Text; ///< as it is read, in one line
    QList<HelpSection> Sections;
};

/// The help file as a list of pages.
///
/// The file is one HTML document in UTF-8. Each <h1 id="..."> begins a page, each
/// <h2 id="..."> a section of it; what stands before the first page (the style) belongs to all.
class HelpBook {
public:
    /// A book without pages.
    HelpBook() = default;

    /// Reads the file. There is at least one page: a file that is missing, empty or damaged gives
    /// one that says so.
    explicit HelpBook(const QString& file);

    const QString& Folder() const { return folder_; }
    const QList<HelpTopic>& Topics() const { return topics_; }

    /// The page with that id, or the one with the section of that id; -1 if there is none.
    qsizetype PageOf(const QString& id) const;

    /// The pages that hold all the words, whatever their case; none for no words.
    QList<qsizetype> Find(const QStringList& words) const;

private:
    void ReadPages(QString document);
    void Apologise(const QString& file);

    QString folder_;
    QList<HelpTopic> topics_;
};

/// The words of a search as typed, without the marks around them.
QStringList SearchWords(const QString& typed);
