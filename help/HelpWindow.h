#pragma once

#include <QList>
#include <QWidget>
#include <memory>

/// Makes the window known to screen readers as what it is: a plain widget would be passed over as
/// filling.
void InstallHelpAccess();

class QTreeWidgetItem;

namespace Ui {
class HelpWindow;
}

/// The window that shows the help file: its contents and a search at the left, a page at the
/// right. It is no form of the program: going to it and back is like going to another program.
class HelpWindow : public QWidget {
    Q_OBJECT

public:
    HelpWindow();
    ~HelpWindow() override;

    /// Brings the window to the front, with the page that is being read if it is open already,
    /// else with the first page. A file that cannot be read is said on that page.
    void Open(const QString& helpFile);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void AddShortcuts();
    void PlaceBeside(const QWidget& asking);
    void FillContents();
    void PageChanged(const QString& section);
    void MarkInContents();
    void Search();
    void NextHit(int step);
    void OpenResult(qsizetype result, bool atEnd);
    QTreeWidgetItem* ContentsEntry(const QString& id) const;

    std::unique_ptr<Ui::HelpWindow> ui_;
    QList<qsizetype> results_; ///< the pages found
    QString shown_;            ///< the page or section that the contents are to mark
    bool isPressed_ = false;   ///< the mouse's button on the contents
    bool pressTurnedPage_ = false;
};
