#pragma once

#include "platform/printing/Printer.h"
#include "tests/tour/Text.h"

#include <QString>
#include <QStringList>
#include <QWidget>

/// Pictures and printed pages of one chapter of the tour, in the order of their making:
/// family-01-welcome.png, family-02-..., and family-09-chart.pdf beside its pages' pictures.
class Album : public PrintTarget {
public:
    /// Where all chapters go. Makes the folder, and takes away what an earlier tour left in it.
    /// False if it cannot be written.
    static bool SetFolder(const QString& folder);
    /// The names of all files there.
    static QStringList Files();

    explicit Album(QString chapter) : chapter_(std::move(chapter)) {}

    /// What comes from here on belongs to another chapter, and is counted anew.
    void Begin(const Text& chapter);

    /// A picture of the window, whole, as its user sees it. Fails the test if it cannot be saved.
    /// The picture says where in it the form and its controls stand, one a line: "name x y width
    /// height" under the key Parts, the form itself by the name of Form.
    void Take(const QWidget& window, const Text& name, const QWidget* form = nullptr);
    /// A picture of the screen, for what is in no window: an open menu or list.
    void TakeScreen(const Text& name);

    /// The name of the next print job.
    void NameNextPrint(const Text& name) { printName_ = name; }
    /// The number of print jobs sent.
    int PrintCount() const { return static_cast<int>(prints_.size()); }
    /// The text of the last job's pages in the order of reading; each page ends in a form feed.
    QString PrintedText() const;

    std::unique_ptr<QPagedPaintDevice> Open() override;
    void Sent(const QString& name) override;

private:
    QString NextFile(const QString& name, const QString& ending);

    QString chapter_;
    int number_ = 0;
    QString printName_;
    QString pendingPrint_;
    QStringList prints_;
};
