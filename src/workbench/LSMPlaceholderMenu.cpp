#include "workbench/LSMPlaceholderMenu.h"

#include "kit/ui/ZQViewExtensions.h"
#include "platform/Bundle.h"

#include <QFile>
#include <QXmlStreamReader>

namespace {

struct Placeholder
{
    QString name;
    QString text;
};

// A property list in memory would not keep the order.
QList<Placeholder> placeholders()
{
    QFile file(platform::Bundle::mainBundle().pathForResource(QStringLiteral("placeholder"),
                                                              QStringLiteral("plist")));
    (void)file.open(QIODevice::ReadOnly); // what is not there holds nothing
    QList<Placeholder> result;
    QString name;
    for (QXmlStreamReader xml(file.readAll()); !xml.atEnd(); xml.readNext()) {
        if (xml.isStartElement() && xml.name() == u"key")
            name = xml.readElementText();
        else if (xml.isStartElement() && xml.name() == u"string")
            result.append({name, xml.readElementText()});
    }
    return result;
}

} // namespace

void LSMFillPlaceholderMenu(QMenu *menu, const std::function<void(const QString &text)> &insert)
{
    QMenu *part = menu;
    for (const auto &[name, text] : placeholders()) {
        const QString title = zq::withoutMnemonic(platform::Bundle::mainBundle().localizedString(
            name, {}, QStringLiteral("Placeholder")));
        if (text.isEmpty())
            part = menu->addMenu(title);
        else
            part->addAction(title, menu, [insert, text = text] { insert(text); });
    }
}
