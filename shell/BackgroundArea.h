#pragma once

#include <QImage>
#include <QMdiArea>
#include <QPixmap>

/// The inside of the main window: the forms' sub-windows before a colour and a picture. The
/// picture stands in the middle in its own size; one larger than the area is made smaller until
/// it just covers it. The colour is seen around it and through it.
class BackgroundArea : public QMdiArea {
    Q_OBJECT

public:
    explicit BackgroundArea(QWidget* parent = nullptr);

    /// A 32-bit colour value, red in the low byte.
    qint32 BackColor() const { return backColor_; }
    void SetBackColor(qint32 color);

    /// The picture in full; a null image is none.
    QImage Picture() const { return picture_; }
    void SetPicture(const QImage& picture);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    const QPixmap& FittedPicture();

    /// Until the settings have been read: the light paper of the settings as delivered.
    qint32 backColor_ = 15267066;
    QImage picture_;
    QPixmap fitted_;
    QSize fittedFor_;
};
