#pragma once

#include <QtWidgets/QWidget>

namespace OrrinQuiver {

class Quiver;

// A top-level window holding one control that fills it. The control is made
// as a form designer places a new one: constructed, then InitProperties(), so
// it starts with its initial values and the header "Header 1". Showing the
// window shows the control.
class ControlWindow : public QWidget
{
    Q_OBJECT

public:
    // `controlSize` is the control's size; the window takes the same.
    explicit ControlWindow(const QSize &controlSize, QWidget *parent = nullptr);

    Quiver *control() const { return m_control; }

private:
    Quiver *m_control;
};

} // namespace OrrinQuiver
