#pragma once

#include <QObject>
#include <QVariantMap>

/// The stored settings of one group of editors: a dictionary of plain values, which lies in the
/// application's user defaults under the group's name. Colours and fonts are archived on their way
/// in and unarchived on their way out (MGSArchiving.h). What is stored under that name and is no
/// dictionary counts as an empty one.
///
/// One object for each group, for the life of the process. Any thread may look it up; all else is
/// on the main thread.
class MGSUserDefaults : public QObject
{
    Q_OBJECT

public:
    static MGSUserDefaults &sharedUserDefaultsForGroupID(const QString &groupID);
    static MGSUserDefaults &sharedUserDefaults(); ///< The group "Global".

    const QString &groupID() const { return m_groupID; }

    /// The group's whole dictionary while none is stored. The first value that is set stores it.
    void registerDefaults(const QVariantMap &values);

    QStringList allKeys() const;
    QVariant object(const QString &key) const; ///< Invalid for an unknown key.

    /// An invalid value removes the key. On disk as soon as any user default is.
    void setObject(const QString &key, const QVariant &value);

Q_SIGNALS:
    void didChange(); ///< The dictionary, by this process or by another one.

private:
    explicit MGSUserDefaults(const QString &groupID);

    const QString m_groupID;
};
