#pragma once

#include "platform/forms/Form.h"
#include "session/FormNames.h"

#include <QDate>
#include <memory>

namespace Ui {
class DisplayAllPeople;
}

/// Asks for whom a chart is, and writes the rows of the hidden editor into one chart table for
/// each child selected; on request it prints them all.
class DisplayAllPeople : public FormWidget {
    Q_OBJECT

public:
    static inline const QString FormName = FormNames::DisplayAllPeople;

    DisplayAllPeople();
    ~DisplayAllPeople() override;

    /// The editor's chart name; during the save the name of the table being written.
    QString ChartName;
    /// The editor's slot in ChartEditors.
    qint16 FormIndex = 0;
    QDate FirstDate;
    QDate LastDate;
    bool AutoCreate = false;

    bool AnySelected() const;
    int SelectedCount() const;

protected:
    void Load() override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void Ok_Click();
    void Save(const QString& newOwner, const QString& existingOwner);

    class PictureList;
    class PeopleList;

    std::unique_ptr<Ui::DisplayAllPeople> ui_;
    /// The pictures of the list's items.
    std::unique_ptr<PictureList> Images;
};
