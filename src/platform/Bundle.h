#pragma once

#include <QString>
#include <QVariantMap>

namespace platform {

/// A package of resources and translations, compiled into the program. A value that never changes;
/// any thread.
class Bundle
{
public:
    /// The application's own resources, at ":/layoutsmith".
    static const Bundle &mainBundle();

    /// Reads the bundle's `Info.plist`; one that is missing or damaged counts as empty.
    explicit Bundle(const QString &root);

    /// `pathForResource("defaults", "plist")`; null when there is none. The type may be empty.
    QString pathForResource(const QString &name, const QString &type) const;

    /// The text of that resource, as UTF-8; null when there is none.
    QString stringForResource(const QString &name, const QString &type) const;

    /// The translation of `key`, which is the English text itself, from the strings table (a
    /// translation context; null is the table "Localizable"). Without one: `value`, or the key
    /// where that is empty.
    QString localizedString(const QString &key, const QString &value = {},
                            const QString &table = {}) const;

    const QVariantMap &infoDictionary() const { return m_info; } ///< `Info.plist` of the bundle.
    QString bundleIdentifier() const;                            ///< `CFBundleIdentifier`
    QString bundleName() const;                                  ///< `CFBundleName`

private:
    QString m_root;
    QVariantMap m_info;
};

/// A user-facing text of the main bundle's table "Localizable".
QString localized(const char *key);

/// Marks such a text where it stands in a table, to be given to `localized` later.
constexpr const char *localizable(const char *key)
{
    return key;
}

} // namespace platform
