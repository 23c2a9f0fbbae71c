#pragma once

#include <QtCore/QStringList>
#include <QtWidgets/QWidget>

QT_FORWARD_DECLARE_CLASS(QComboBox)

namespace OrrinQuiver {

class ImageList;
class Quiver;

// The demo window: one bar with headers in both views, icons from the bar's
// image lists and a header of a hundred thousand items, next to a chooser of
// its drawing style.
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

    Quiver *m_control;
    QComboBox *m_styles;
    ImageList *m_icons;
    ImageList *m_smallIcons;
};

} // namespace OrrinQuiver
