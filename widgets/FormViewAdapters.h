#pragma once

#include "store/FormViews.h"

#include <QLabel>
#include <QListWidget>
#include <QTextDocument>

/// The store's small interfaces on ordinary widgets.

class LabelCaption : public CaptionTarget {
public:
    explicit LabelCaption(QLabel& label) : label_(label) {}
    void SetCaption(const QString& caption) override { label_.setText(caption); }

private:
    QLabel& label_;
};

/// A picture shown in a label, scaled to fit with its proportions kept. The picture itself is
/// kept in full in the label's property.
class LabelPicture : public PictureTarget {
public:
    explicit LabelPicture(QLabel& label) : label_(label) {}
    QImage Picture() const override;
    void SetPicture(const QImage& picture) override;

private:
    QLabel& label_;
};

/// A list of names in a list widget; a name is also its entry's tool tip, since it may be cut.
class ListNames : public NameList {
public:
    explicit ListNames(QListWidget& list) : list_(list) {}
    void Clear() override { list_.clear(); }
    void AddItem(const QString& text) override {
        auto* item = new QListWidgetItem(text, &list_);
        item->setToolTip(Qt::convertFromPlainText(text));
    }

private:
    QListWidget& list_;
};

/// The text of the last selected entry, "" if none is.
QString SelectedEntry(const QListWidget& list);
