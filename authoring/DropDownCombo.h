#pragma once

#include <QComboBox>

/// A combo box of free text whose list is only an offer: nothing that is typed is completed or
/// matched to an entry, and turning the wheel over it changes nothing.
///
/// `activated` comes only when an entry is chosen in the list or by the arrow keys.
class DropDownCombo : public QComboBox {
    Q_OBJECT

public:
    explicit DropDownCombo(QWidget* parent);

    QString Text() const { return currentText(); }
    void SetText(const QString& text);
    /// What screen readers call the box.
    void SetSpokenName(const QString& name);

    /// Whether the list can be seen.
    bool IsDropped() const;
    void showPopup() override;
    void hidePopup() override;

signals:
    /// The list is about to drop down and may still be filled.
    void AboutToDrop();

protected:
    void wheelEvent(QWheelEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    void FitList();
    void TellExpanded();
};

/// Makes such boxes known to screen readers by their name. The toolkit calls a combo box by its
/// text.
void InstallComboAccess();
