#pragma once

#include <QProxyStyle>

/// What a style sheet cannot do well or would be slow at: title bars inside the main window, scroll
/// bars, group boxes, the marks of check boxes and option buttons, the signs beside captions,
/// chosen entries of lists, their height and the room at both of their ends, and what is the same
/// on every desktop. All else is Fusion's.
class DutygridStyle : public QProxyStyle {
    Q_OBJECT

public:
    DutygridStyle();

    using QProxyStyle::polish;
    void polish(QWidget* widget) override;
    void drawComplexControl(ComplexControl control, const QStyleOptionComplex* option,
                            QPainter* painter, const QWidget* widget) const override;
    void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                       const QWidget* widget) const override;
    QIcon standardIcon(StandardPixmap icon, const QStyleOption* option,
                       const QWidget* widget) const override;
    QRect subControlRect(ComplexControl control, const QStyleOptionComplex* option, SubControl part,
                         const QWidget* widget) const override;
    QSize sizeFromContents(ContentsType type, const QStyleOption* option, const QSize& contents,
                           const QWidget* widget) const override;
    int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                  QStyleHintReturn* returned) const override;
    int pixelMetric(PixelMetric metric, const QStyleOption* option,
                    const QWidget* widget) const override;
};
