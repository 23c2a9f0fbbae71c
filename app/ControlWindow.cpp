#include "ControlWindow.h"

#include "control/Quiver.h"

#include <QtWidgets/QVBoxLayout>

namespace OrrinQuiver {

ControlWindow::ControlWindow(const QSize &controlSize, QWidget *parent)
    : QWidget(parent)
    , m_control(new Quiver(this))
{
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_control);
    m_control->InitProperties();
    resize(controlSize);
}

} // namespace OrrinQuiver
