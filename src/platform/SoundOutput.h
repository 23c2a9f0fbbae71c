#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QString>

namespace OrrinQuiver {

// Where the control's click sounds go. Playing is asynchronous: every call
// returns at once and a new sound cuts off the one still playing. Nothing
// here reports an error; a sound that cannot be played is simply not heard.
class SoundOutput
{
public:
    virtual ~SoundOutput() = default;

    // Plays wave-file data held in memory; data that is not a playable wave
    // file plays nothing.
    virtual void playWave(const QByteArray &wave) = 0;
    // Plays the desktop's sound for a named event (such as "MenuCommand");
    // a name the desktop has no sound for plays nothing.
    virtual void playEvent(const QString &name) = 0;
};

} // namespace OrrinQuiver
