#include "platform/PreparedText.h"

#include "platform/FitText.h"

#include <QtCore/QCache>
#include <QtCore/QHashFunctions>
#include <QtGui/QFont>
#include <QtGui/QFontMetrics>
#include <QtGui/QTransform>

namespace OrrinQuiver {

namespace {

// Enough for the captions of every visible item of several views at once.
constexpr qsizetype KeptTexts = 2048;

struct TextKey
{
    QString text;
    QFont font;
    int width = 0;

    friend bool operator==(const TextKey &a, const TextKey &b)
    {
        return a.width == b.width && a.text == b.text && a.font == b.font;
    }
    friend size_t qHash(const TextKey &key, size_t seed = 0)
    {
        return qHashMulti(seed, key.text, key.font, key.width);
    }
};

QCache<TextKey, PreparedText> &preparedTexts()
{
    static QCache<TextKey, PreparedText> cache(KeptTexts);
    return cache;
}

} // namespace

PreparedText prepareFittedText(const QFont &font, const QString &text, int width)
{
    QCache<TextKey, PreparedText> &cache = preparedTexts();
    TextKey key{ text, font, width };
    if (const PreparedText *kept = cache.object(key))
        return *kept;

    const FittedText fitted = FitTextWithEllipsis(QFontMetrics(font), text, width);
    auto prepared = std::make_unique<PreparedText>();
    prepared->text.setText(fitted.text);
    prepared->text.setTextFormat(Qt::PlainText);
    prepared->text.prepare(QTransform(), font);
    prepared->width = fitted.width;
    const PreparedText result = *prepared;
    cache.insert(std::move(key), prepared.release());
    return result;
}

} // namespace OrrinQuiver
