#pragma once

// What the control's test programs share: the control and its object model,
// Qt Test, and a control as a form's new instance gets it.

#include "control/Quiver.h"
#include "model/Header.h"
#include "model/Headers.h"
#include "model/Item.h"
#include "model/Items.h"
#include "model/Navigation.h"

#include <QtTest/QSignalSpy>
#include <QtTest/QTest>

using namespace OrrinQuiver;

// A control with its initial properties, as a form's new instance has them.
struct NewQuiver : Quiver
{
    explicit NewQuiver(QWidget *parent = nullptr)
        : Quiver(parent)
    {
        InitProperties();
    }
};

// The first arguments of the signals a spy caught, in order: the names
// PropertyChanged announced.
inline QStringList announced(const QSignalSpy &spy)
{
    QStringList names;
    for (const QList<QVariant> &arguments : spy)
        names.append(arguments.at(0).toString());
    return names;
}
