#pragma once

#include "core/OrrinQuiverExport.h"

#include <QtCore/QString>
#include <QtCore/QVariant>

#include <memory>

class QObject;

namespace OrrinQuiver {

// The behaviour flags, colours and mouse pointers that belong to each of the
// five drawing styles. A preset is written property by property, in a fixed
// order, through a Target: the control itself, or a form designer that records
// every change so that it can be undone and saved.
class ORRINQUIVER_EXPORT StylePreset
{
public:
    // The control a preset is written to, addressed by property name.
    class Target
    {
    public:
        virtual ~Target() = default;
        // The property's current value; an invalid variant when there is none.
        virtual QVariant read(const char *name) const = 0;
        // Sets the property; a target may refuse a value and keep its own.
        virtual void write(const char *name, const QVariant &value) = 0;
        // Called before and after the writes of one preset, so that a target
        // can make them one change; nothing by default.
        virtual void beginPreset() { }
        virtual void endPreset() { }
    };

    // The text that tells a developer what applying `style` does; "" for a
    // value outside qvStyle.
    static QString description(int style);

    // Sets Style to `style`, reads it back, and writes the preset of the style
    // read: flags, then colours, then mouse pointers. A style the target
    // refuses gives the preset of the style it kept. A value outside qvStyle
    // (asked for, or kept) writes nothing more.
    static void apply(int style, Target &target);
    // The same for a control reached through QObject's properties by name.
    static void apply(int style, QObject &control);

    // A target that reads and writes `control`'s properties by name; once the
    // control is destroyed it reads invalid variants and ignores writes.
    static std::unique_ptr<Target> targetFor(QObject *control);
};

} // namespace OrrinQuiver
