#include "authoring/DisplayAllPeople.h"

#include "authoring/PersonCard.h"
#include "platform/forms/DefaultForms.h"
#include "platform/forms/Handlers.h"
#include "platform/runtime/Prompts.h"
#include "session/Session.h"
#include "store/TableNames.h"
#include "ui_DisplayAllPeople.h"
#include "widgets/FormViewAdapters.h"
#include "widgets/RoundPicture.h"

#include <QIcon>
#include <QScopeGuard>

/// Pictures as discs, made once in the size and sharpness in which the list shows them.
class DisplayAllPeople::PictureList : public ImageList {
public:
    explicit PictureList(const QListWidget& list) : list_(list) {}

    int AddPicture(const QImage& picture) override {
        icons_.append(
            QIcon(RoundPicture(picture, list_.iconSize().width(), list_.devicePixelRatioF())));
        return static_cast<int>(icons_.size());
    }

    const QIcon& Icon(int number) const { return icons_.at(number - 1); }

private:
    const QListWidget& list_;
    QList<QIcon> icons_;
};

class DisplayAllPeople::PeopleList : public IconList {
public:
    explicit PeopleList(QListWidget& list) : list_(list) {}

    void Clear() override { list_.clear(); }
    void AddItem(const QString& text) override { AddNamed(list_, text); }
    int View() const override { return list_.viewMode() == QListView::IconMode ? 0 : 1; }
    void SetIcons(ImageList& images) override { icons_ = dynamic_cast<PictureList*>(&images); }
    void AddItemWithIcon(const QString& text, int icon) override {
        QListWidgetItem* item = AddNamed(list_, text);
        if (icons_ != nullptr)
            item->setIcon(icons_->Icon(icon));
    }

private:
    QListWidget& list_;
    const PictureList* icons_ = nullptr;
};

DisplayAllPeople::DisplayAllPeople()
    : FormWidget(Place::InMainWindow), ui_(std::make_unique<Ui::DisplayAllPeople>()) {
    ui_->setupUi(this);
    ui_->ListView1->setItemDelegate(new PersonCard(ui_->ListView1));
    ui_->ListView1->installEventFilter(this);
    Images = std::make_unique<PictureList>(*ui_->ListView1);
    ui_->ListView1->SetRules({.Opens = true});
    On(&ui_->ListView1->Clicks, &ListClicks::Opened, this, [this](const QModelIndex& at) {
        // The first of the two clicks may just have taken the item out of the selection.
        if (at.isValid())
            ui_->ListView1->item(at.row())->setSelected(true);
        Ok_Click();
    });
    On(ui_->Ok, &QPushButton::clicked, this, [this] { Ok_Click(); });
    On(ui_->Cancel, &QPushButton::clicked, this, [this] { Unload(); });
}

DisplayAllPeople::~DisplayAllPeople() = default;

void DisplayAllPeople::Load() {
    PeopleList people(*ui_->ListView1);
    LabelPicture scratch(*ui_->Image1);
    Database().AddUsersImages(*Images, people, AccountKind::Student, scratch);
}

bool DisplayAllPeople::eventFilter(QObject* watched, QEvent* event) {
    // The keyboard's place shows from the first key on, not only after a Tab.
    if (watched == ui_->ListView1 && event->type() == QEvent::KeyPress)
        window()->setAttribute(Qt::WA_KeyboardFocusChange);
    return FormWidget::eventFilter(watched, event);
}

bool DisplayAllPeople::AnySelected() const {
    return SelectedCount() > 0;
}

int DisplayAllPeople::SelectedCount() const {
    return static_cast<int>(ui_->ListView1->selectedItems().size());
}

void DisplayAllPeople::Save(const QString& newOwner, const QString& existingOwner) {
    DatabaseCls& store = Database();
    if (store.ChartExist(ChartName)) {
        // History takes the old rows before they are replaced.
        store.DuplicateChartHistory(ChartName);
        store.ClearChartPoints(ChartName);
        store.WriteInfoToChart(ChartName, FormIndex, false, existingOwner, FirstDate, LastDate,
                               AutoCreate);
    } else {
        store.WriteInfoToChart(ChartName, FormIndex, false, newOwner, FirstDate, LastDate,
                               AutoCreate);
        store.DuplicateChartHistory(ChartName);
    }
}

void DisplayAllPeople::Ok_Click() {
    const QString base = FirstWord(ChartName);
    QList<ChildsChart> saved;
    // After an error Ok can be pressed again, for nobody as well.
    auto formerName = qScopeGuard([this, name = ChartName] { ChartName = name; });
    if (!AnySelected()) {
        Save(QString(), QStringLiteral("Nobody"));
        saved += {ChartName, QString()};
    } else {
        for (int index = 0; index < ui_->ListView1->count(); ++index) {
            const QListWidgetItem* item = ui_->ListView1->item(index);
            if (!item->isSelected())
                continue;
            const QString kid = item->text();
            ChartName = base + QLatin1Char(' ') + kid;
            Save(kid, kid);
            saved += {ChartName, kid};
            if (SelectedCount() < 2)
                Tell(kid + QLatin1String("'s Sparkit Dutygrid has been created"));
        }
    }
    if (SelectedCount() >= 2)
        Tell(QStringLiteral("All charts have been created"));
    formerName.dismiss();
    const bool printsThem = ui_->PrintThem->isChecked();
    Unload();
    if (Form* editor = ExistingForm(FormNames::ChartEditor))
        editor->Unload();
    // All that was asked for is saved; a printer that fails leaves nothing here to be done again.
    if (printsThem)
        Database().PrintChartsOf(saved);
}
