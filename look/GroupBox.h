#pragma once

#include <QStyle>

class QPainter;
class QStyleOptionGroupBox;

/// Group boxes: a card with its title above it, in the weight of all titles. A style sheet cannot
/// give a title a font of its own.
QRect GroupBoxPart(const QStyleOptionGroupBox& option, QStyle::SubControl part);
void DrawGroupBox(const QStyleOptionGroupBox& option, QPainter& painter);
