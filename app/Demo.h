#pragma once

#include <QtCore/QPointer>
#include <QtCore/QStringList>
#include <QtWidgets/QWidget>

QT_FORWARD_DECLARE_CLASS(QCheckBox)
QT_FORWARD_DECLARE_CLASS(QComboBox)
QT_FORWARD_DECLARE_CLASS(QPushButton)
QT_FORWARD_DECLARE_CLASS(QSpinBox)

namespace OrrinQuiver {

class EventLog;
class Header;
class ImageList;
class Quiver;

// The demo window: one bar with headers in both views, icons from the bar's
// image lists and a header of a hundred thousand items; beside it a chooser
// of its drawing style, its scrolling properties, a flash of the selected
// header, back and forward through its history, and a log of its events.
class Demo : public QWidget
{
    Q_OBJECT

public:
    explicit Demo(QWidget *parent = nullptr);

    Quiver *control() const { return m_control; }

    // Paints the bar once per style and view (a large-icon header open, then
    // a small-icon one), with the classic desktop colours so that the
    // pictures are the same on every machine, into PNG files in `directory`
    // (made when missing). Returns the files' paths; empty when the directory
    // cannot be made or a file not written.
    QStringList renderScreens(const QString &directory);

private:
    void fill();
    // The column beside the bar: the style chooser, the scrolling
    // properties, Flash, Back and Forward.
    QLayout *makeSide();
    // Shows what the bar's properties and history are now.
    void refresh();
    void flash(bool on);

    Quiver *m_control;
    QComboBox *m_styles;
    QCheckBox *m_smoothScroll;
    QSpinBox *m_scrollDelay;
    QCheckBox *m_autoMouseWheel;
    QPushButton *m_flash;
    QPushButton *m_back;
    QPushButton *m_forward;
    EventLog *m_log;
    // The header the Flash toggle started flashing.
    QPointer<Header> m_flashing;
    ImageList *m_icons;
    ImageList *m_smallIcons;
};

} // namespace OrrinQuiver
