#pragma once

#include <QtCore/QObject>
#include <QtCore/QString>

QT_FORWARD_DECLARE_CLASS(QTimer)

namespace OrrinQuiver {

class Headers;
class HeaderStrip;

// Flashing a header to draw attention to it: its bar alternates between the
// header's flash colours and the control's header colours on every tick of
// the control's FlashTimer (whose interval is FlashDelay). One header
// flashes at a time. A child of the control named "HeaderFlash".
class HeaderFlash : public QObject
{
    Q_OBJECT

public:
    HeaderFlash(QObject *control, const Headers &headers, HeaderStrip &strip, QTimer &timer);

    // Starts (`enabled`) or stops flashing the header with key `headerKey`.
    // The header that flashed until now shows its normal look again. A key
    // that names no header ends the flash at the next tick.
    void flash(const QString &headerKey, bool enabled);

private:
    // Draws the flashing header in the look it does not show now.
    void tick();

    const Headers &m_headers;
    HeaderStrip &m_strip;
    QTimer &m_timer;
    // The key of the flashing header; empty while none flashes.
    QString m_key;
};

} // namespace OrrinQuiver
