#pragma once

#include "shell/WelcomePage.h"

#include <QImage>
#include <QMdiArea>
#include <QPixmap>

/// The inside of the main window: the forms' sub-windows before a colour and a picture. The
/// picture stands in the middle in its own size; one larger than the area is made smaller until
/// it just covers it. The colour is seen around it and through it.
///
/// While no sub-window is open, and no picture of somebody's own is to be seen, the area greets its
/// user; on a colour of somebody's own without the logo.
class BackgroundArea : public QMdiArea {
    Q_OBJECT

public:
    /// The ground of the settings as delivered: a pale green, on which the paper of the forms
    /// stands out.
    static constexpr qint32 DeliveredColor = 14409673;
    /// The one that versions before delivered, nearly the forms' own. Settings that hold it look
    /// as those of today.
    static constexpr qint32 FormerDeliveredColor = 15267066;

    explicit BackgroundArea(QWidget* parent = nullptr);

    /// A 32-bit colour value, red in the low byte.
    qint32 BackColor() const { return backColor_; }
    void SetBackColor(qint32 color);

    /// The picture in full; a null image is none.
    QImage Picture() const { return picture_; }
    void SetPicture(const QImage& picture);

    void SetGreeting(const Greeting& greeting);
    /// True while the greeting is what the area shows.
    bool ShowsWelcome() const;
    /// Gives the keyboard to the greeting. False if it is not shown.
    bool FocusWelcome() { return welcome_->TakeKeyboard(); }

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    /// Scrolls to a control that the keyboard has come to.
    void BringIntoView(const QWidget& control);
    const QPixmap& FittedPicture();
    bool IsAsDelivered() const;
    void LookAfterWelcome();

    /// Until the settings have been read, the delivered one.
    qint32 backColor_ = DeliveredColor;
    QImage picture_;
    WelcomePage* welcome_;
    QPixmap fitted_;
    QSize fittedFor_;
};
