#pragma once

#include "platform/SoundOutput.h"

#include <QtCore/QList>

// A sound output that plays nothing and remembers every sound asked for, in
// order, so tests can check which sound a click chose.
class RecordingSoundOutput : public OrrinQuiver::SoundOutput
{
public:
    struct Sound
    {
        QByteArray wave; // the data of a played wave
        QString event; // the name of a played desktop event sound
    };

    void playWave(const QByteArray &wave) override { played.append({ wave, QString() }); }
    void playEvent(const QString &name) override { played.append({ QByteArray(), name }); }

    QList<Sound> played;
};
