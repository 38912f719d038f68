#pragma once

#include "store/FormViews.h"

#include <QLabel>
#include <QListWidget>

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

/// Adds a name to a list; it is also its entry's tool tip, since it may be cut.
QListWidgetItem* AddNamed(QListWidget& list, const QString& name);

/// A list of names in a list widget.
class ListNames : public NameList {
public:
    explicit ListNames(QListWidget& list) : list_(list) {}
    void Clear() override { list_.clear(); }
    void AddItem(const QString& text) override { AddNamed(list_, text); }

private:
    QListWidget& list_;
};

/// The text of the last selected entry, "" if none is.
QString SelectedEntry(const QListWidget& list);
