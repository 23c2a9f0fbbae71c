#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QObject>
#include <QtCore/QString>

#include <array>
#include <memory>

QT_FORWARD_DECLARE_CLASS(QNetworkAccessManager)

namespace OrrinQuiver {

class SoundOutput;

// The control's click sounds: the built-in folder sound, the three sounds
// fetched from the locations the host gives, and where they are played. A
// child of the control named "Sounds".
class QuiverSounds : public QObject
{
    Q_OBJECT

public:
    // The sounds a host can give a location for, and the built-in one.
    enum Kind { ItemSound, HeaderUpSound, HeaderDownSound, BuiltInSound };

    // A sound and where it came from; not loaded until its data arrived.
    struct Sound
    {
        QString url;
        QByteArray data;
        bool loaded = false;
    };

    explicit QuiverSounds(QObject *control);
    ~QuiverSounds() override;

    const Sound &sound(Kind kind) const { return m_sounds[kind]; }
    // The property whose location a sound is fetched from ("SoundItemURL",
    // ...); downloads are told apart by it. Empty for the built-in sound.
    static QString propertyOf(Kind kind);

    // Stores a new location; false, with nothing changed, when it is the one
    // stored (compared exactly). An empty location unloads the sound, which
    // then falls back to the built-in one; a new location keeps the sound
    // fetched so far until its own arrives.
    bool setUrl(Kind kind, const QString &url);
    // Starts fetching the sound from its stored location; nothing for an
    // empty one. A fetch that fails leaves the sound as it was; one that ends
    // after its location changed is dropped.
    void fetch(Kind kind);
    // Stores what a download started under a property's name brought: the
    // three sound locations ("SoundItemURL", ...) fill their sounds; other
    // names are not sounds.
    void downloadComplete(const QString &propertyName, const QByteArray &data);

    // Where sounds go; none plays nothing. Tests put a recording output here.
    SoundOutput *output() const { return m_output.get(); }
    void setOutput(std::unique_ptr<SoundOutput> output);

    // The sound of a click that opens the header at `clickedPosition` while
    // the one at `openPosition` is open, with the control's two switches.
    void playHeaderSound(int clickedPosition, int openPosition, bool playSounds, bool useSystemSounds);

    // The sound of a click on an item: the desktop's "MenuCommand" sound with
    // system sounds on, else the item sound when one was loaded.
    void playItemSound(bool playSounds, bool useSystemSounds);

private:
    std::array<Sound, 4> m_sounds;
    std::unique_ptr<SoundOutput> m_output;
    // Declared last so that it goes first: a fetch it aborts still finds the
    // sounds in place.
    std::unique_ptr<QNetworkAccessManager> m_network;
};

} // namespace OrrinQuiver
