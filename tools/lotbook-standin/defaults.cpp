// Reads and writes the preferences of the host, as the command of this name does where the host is
// at home: defaults read DOMAIN [KEY] | write DOMAIN KEY [-bool|-int|-float|-string] VALUE |
// delete DOMAIN KEY
#include "library/LSMLotbookConfig.h"
#include "platform/UserDefaults.h"

#include <cstdio>
#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QStringList>

using platform::UserDefaults;

namespace {

constexpr const char *usage = R"(usage: defaults read DOMAIN [KEY]
       defaults write DOMAIN KEY [-bool|-int|-float|-string] VALUE
       defaults delete DOMAIN KEY
)";

int complain(const QString &text)
{
    std::fprintf(stderr, "defaults: %s\n", qPrintable(text));
    return 1;
}

QString shown(const QVariant &value)
{
    return value.typeId() == QMetaType::Bool ? QString::number(value.toInt()) : value.toString();
}

// Invalid for a text that is no value of the type.
QVariant valueOf(const QString &type, const QString &text)
{
    bool isRight = true;
    if (type == u"-string")
        return text;
    if (type == u"-int") {
        const qint64 value = text.toLongLong(&isRight);
        return isRight ? QVariant(value) : QVariant();
    }
    if (type == u"-float") {
        const double value = text.toDouble(&isRight);
        return isRight ? QVariant(value) : QVariant();
    }
    const QString word = text.toLower();
    const bool isTrue = word == u"yes" || word == u"true" || word == u"1";
    const bool isFalse = word == u"no" || word == u"false" || word == u"0";
    return type == u"-bool" && (isTrue || isFalse) ? QVariant(isTrue) : QVariant();
}

int read(const UserDefaults &defaults, const QStringList &keys)
{
    for (const QString &key : keys.isEmpty() ? defaults.storedKeys() : keys) {
        if (!defaults.isStored(key))
            return complain(QStringLiteral("there is no %1").arg(key));
        const QString value = shown(defaults.object(key));
        std::printf("%s\n",
                    qPrintable(keys.isEmpty() ? key + QStringLiteral(" = ") + value : value));
    }
    return 0;
}

int write(UserDefaults &defaults, const QString &key, const QVariant &value)
{
    defaults.setObject(key, value);
    return defaults.synchronize() ? 0 : complain(QStringLiteral("the file cannot be written"));
}

} // namespace

int main(int argc, char **argv)
{
    QCoreApplication application(argc, argv);
    QStringList words = QCoreApplication::arguments().mid(1);
    if (words.size() < 2 || words[1].contains(u'/')) {
        std::fputs(usage, stderr);
        return 2;
    }
    const QString verb = words.takeFirst();
    const QString path =
        LSMLotbookConfig::lotbookPreferencesPathForBundleIdentifier(words.takeFirst());
    UserDefaults defaults(path);
    if (verb == u"read" && words.size() <= 1)
        return read(defaults, words);
    QDir().mkpath(QFileInfo(path).path());
    if (verb == u"delete" && words.size() == 1)
        return write(defaults, words[0], {});
    if (verb == u"write" && words.size() == 2)
        words.insert(1, QStringLiteral("-string"));
    if (verb == u"write" && words.size() == 3) {
        const QVariant value = valueOf(words[1], words[2]);
        return value.isValid()
                   ? write(defaults, words[0], value)
                   : complain(
                         QStringLiteral("%1 is no value of the type %2").arg(words[2], words[1]));
    }
    std::fputs(usage, stderr);
    return 2;
}
