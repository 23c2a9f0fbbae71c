#include "itemview/ItemContainer.h"
#include "itemview/ItemContainer_p.h"

#include <QtGui/QMouseEvent>

namespace OrrinQuiver {

bool ItemContainer::GotFocusFromMouse() const { return d->gotFocusFromMouse; }

void ItemContainer::setGotFocusFromMouse(bool on) { d->gotFocusFromMouse = on; }

void ItemContainer::GivenFocus() { }

bool ItemContainer::CanGetFocus() const { return d->canGetFocus; }

void ItemContainer::setCanGetFocus(bool on) { d->canGetFocus = on; }

int ItemContainer::focusPosition() const { return d->focusPosition; }

void ItemContainer::RelabelItem(int) { }

void ItemContainer::mousePressEvent(QMouseEvent *event) { QWidget::mousePressEvent(event); }

void ItemContainer::mouseMoveEvent(QMouseEvent *event) { QWidget::mouseMoveEvent(event); }

void ItemContainer::mouseReleaseEvent(QMouseEvent *event) { QWidget::mouseReleaseEvent(event); }

void ItemContainer::leaveEvent(QEvent *event) { QWidget::leaveEvent(event); }

void ItemContainer::keyPressEvent(QKeyEvent *event) { QWidget::keyPressEvent(event); }

void ItemContainer::focusInEvent(QFocusEvent *event) { QWidget::focusInEvent(event); }

void ItemContainer::focusOutEvent(QFocusEvent *event) { QWidget::focusOutEvent(event); }

bool ItemContainer::focusNextPrevChild(bool next) { return QWidget::focusNextPrevChild(next); }

} // namespace OrrinQuiver
