#pragma once

#include <QProxyStyle>

/// What a style sheet cannot do well or would be slow at: title bars inside the main window, scroll
/// bars, the marks of check boxes and option buttons, chosen entries of lists and the room at both
/// of their ends. All else is Fusion's.
class DutygridStyle : public QProxyStyle {
    Q_OBJECT

public:
    DutygridStyle();

    void drawComplexControl(ComplexControl control, const QStyleOptionComplex* option,
                            QPainter* painter, const QWidget* widget) const override;
    void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                       const QWidget* widget) const override;
    QIcon standardIcon(StandardPixmap icon, const QStyleOption* option,
                       const QWidget* widget) const override;
    int pixelMetric(PixelMetric metric, const QStyleOption* option,
                    const QWidget* widget) const override;
};
