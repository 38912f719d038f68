#pragma once

#include "platform/forms/Form.h"
#include "session/FormNames.h"

#include <memory>

namespace Ui {
class BackgroundOptions;
}

/// Sets the main window's background colour and picture.
class BackgroundOptions : public FormWidget {
    Q_OBJECT

public:
    static inline const QString FormName = FormNames::BackgroundOptions;

    BackgroundOptions();
    ~BackgroundOptions() override;

private:
    void BrowseButton_Click();
    void SetColorbtn_Click();
    void Deliveredbtn_Click();
    void Ok_Click();
    void PaintSwatch();
    void ShowSwatch();

    std::unique_ptr<Ui::BackgroundOptions> ui_;
    /// What the two dialogs hold; cancelling one keeps what it held.
    QString browseFileName_;
    qint32 dialogColor_ = 0;
};
