#pragma once

#include <QtCore/QStringList>
#include <QtWidgets/QWidget>

QT_FORWARD_DECLARE_CLASS(QComboBox)

namespace OrrinQuiver {

class Quiver;

// The demo window: one bar with a few headers and items, next to a chooser of
// its drawing style. It shows what the library can do so far.
class Demo : public QWidget
{
    Q_OBJECT

public:
    explicit Demo(QWidget *parent = nullptr);

    Quiver *control() const { return m_control; }

    // Paints the bar once per style, with the classic desktop colours so that
    // the pictures are the same on every machine, into PNG files in
    // `directory` (made when missing). Returns the files' paths in style
    // order; empty when the directory cannot be made or a file not written.
    QStringList renderScreens(const QString &directory);

private:
    void fill();

    Quiver *m_control;
    QComboBox *m_styles;
};

} // namespace OrrinQuiver
