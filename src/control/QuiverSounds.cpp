#include "control/QuiverSounds.h"

#include "control/HeaderSound.h"
#include "control/modQuiver.h"
#include "platform/SoundOutput.h"

#include <QtNetwork/QNetworkAccessManager>
#include <QtNetwork/QNetworkReply>

namespace OrrinQuiver {

using namespace Qt::StringLiterals;

QString QuiverSounds::propertyOf(Kind kind)
{
    switch (kind) {
    case ItemSound:
        return u"SoundItemURL"_s;
    case HeaderUpSound:
        return u"SoundHeaderUpURL"_s;
    case HeaderDownSound:
        return u"SoundHeaderDownURL"_s;
    case BuiltInSound:
        break;
    }
    return {};
}

QuiverSounds::QuiverSounds(QObject *control)
    : QObject(control)
{
    setObjectName(u"Sounds"_s);
    Sound &builtIn = m_sounds[BuiltInSound];
    builtIn.data = modQuiver::folderSound();
    builtIn.loaded = !builtIn.data.isEmpty();
}

QuiverSounds::~QuiverSounds() = default;

bool QuiverSounds::setUrl(Kind kind, const QString &url)
{
    Sound &sound = m_sounds[kind];
    if (url == sound.url)
        return false;
    sound.url = url;
    if (url.isEmpty())
        sound.loaded = false;
    return true;
}

void QuiverSounds::fetch(Kind kind)
{
    const QString url = m_sounds[kind].url;
    if (url.isEmpty())
        return;
    if (!m_network)
        m_network = std::make_unique<QNetworkAccessManager>();
    QNetworkReply *reply = m_network->get(QNetworkRequest(QUrl::fromUserInput(url)));
    connect(reply, &QNetworkReply::finished, this, [this, kind, reply, url] {
        // A location replaced while the fetch ran keeps the newer one's sound.
        if (reply->error() == QNetworkReply::NoError && m_sounds[kind].url == url)
            downloadComplete(propertyOf(kind), reply->readAll());
        reply->deleteLater();
    });
}

void QuiverSounds::downloadComplete(const QString &propertyName, const QByteArray &data)
{
    for (Kind kind : { ItemSound, HeaderUpSound, HeaderDownSound }) {
        if (propertyName == propertyOf(kind)) {
            m_sounds[kind].data = data;
            m_sounds[kind].loaded = true;
            return;
        }
    }
}

void QuiverSounds::setOutput(std::unique_ptr<SoundOutput> output) { m_output = std::move(output); }

void QuiverSounds::playHeaderSound(int clickedPosition, int openPosition, bool playSounds,
                                   bool useSystemSounds)
{
    if (!m_output)
        return;
    HeaderSoundInput input;
    input.playSounds = playSounds;
    input.useSystemSounds = useSystemSounds;
    input.builtInLoaded = m_sounds[BuiltInSound].loaded;
    input.upLoaded = m_sounds[HeaderUpSound].loaded;
    input.downLoaded = m_sounds[HeaderDownSound].loaded;
    input.clickedPosition = clickedPosition;
    input.openPosition = openPosition;
    switch (chooseHeaderSound(input)) {
    case HeaderSound::BuiltIn:
        m_output->playWave(m_sounds[BuiltInSound].data);
        break;
    case HeaderSound::Up:
        m_output->playWave(m_sounds[HeaderUpSound].data);
        break;
    case HeaderSound::Down:
        m_output->playWave(m_sounds[HeaderDownSound].data);
        break;
    case HeaderSound::None:
        break;
    }
}

void QuiverSounds::playItemSound(bool playSounds, bool useSystemSounds)
{
    if (!m_output || !playSounds)
        return;
    if (useSystemSounds)
        m_output->playEvent(QStringLiteral("MenuCommand"));
    else if (m_sounds[ItemSound].loaded)
        m_output->playWave(m_sounds[ItemSound].data);
}

} // namespace OrrinQuiver
