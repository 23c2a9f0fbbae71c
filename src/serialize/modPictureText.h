#pragma once

#include <QtCore/QString>
#include <QtCore/QVariant>

// The text form in which a property bag keeps a pointer picture (a QCursor
// or a QIcon, the pictures the control accepts for its mouse icons):
//   ""                         no picture
//   "cursor:N"                 a cursor of Qt::CursorShape N
//   "cursor:X,Y:<base64 PNG>"  a cursor drawn from a picture, hot spot X, Y
//   "icon:<base64 PNG>"        an icon, at its first size
namespace OrrinQuiver::modPictureText {

// "" for no picture, a null one, and a value that is neither a QCursor nor a QIcon.
QString pictureToText(const QVariant &picture);

// The picture a text stands for; an invalid QVariant (no picture) for ""
// and for any text not in the forms above.
QVariant textToPicture(const QString &text);

} // namespace OrrinQuiver::modPictureText
