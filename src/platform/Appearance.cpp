#include "platform/Appearance.h"
#include "platform/Desktop.h"
#include "platform/UserDefaults.h"

namespace platform {

namespace {

const QString choiceKey = QStringLiteral("appearance");
const QString lightChoice = QStringLiteral("light");
const QString darkChoice = QStringLiteral("dark");
const QString autoChoice = QStringLiteral("auto");

} // namespace

Appearance &Appearance::shared()
{
    static Appearance appearance;
    return appearance;
}

Appearance::Appearance()
{
    connect(&UserDefaults::standardUserDefaults(), &UserDefaults::didChange, this,
            [this](const QString &key) {
                if (key == choiceKey)
                    settle();
            });
    desktop::watchColorScheme(this, [this](ColorScheme scheme) {
        m_desktopScheme = scheme;
        settle();
    });
    settle();
}

QString Appearance::choice() const
{
    const QString stored = UserDefaults::standardUserDefaults().string(choiceKey);
    return stored == lightChoice || stored == darkChoice ? stored : autoChoice;
}

void Appearance::setChoice(const QString &choice)
{
    UserDefaults::standardUserDefaults().setObject(choiceKey, choice);
}

void Appearance::settle()
{
    const QString wish = choice();
    const ColorScheme scheme = wish == lightChoice  ? ColorScheme::Light
                               : wish == darkChoice ? ColorScheme::Dark
                                                    : m_desktopScheme;
    if (std::exchange(m_scheme, scheme) != scheme)
        Q_EMIT colorSchemeDidChange();
}

QColor mixed(const QColor &over, qreal share, const QColor &under)
{
    const auto part = [share = float(share)](float a, float b) {
        return a * share + b * (1 - share);
    };
    return QColor::fromRgbF(part(over.redF(), under.redF()), part(over.greenF(), under.greenF()),
                            part(over.blueF(), under.blueF()));
}

} // namespace platform
