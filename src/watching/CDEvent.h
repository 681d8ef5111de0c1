#pragma once

#include <QDateTime>
#include <QUrl>
#include <QVariantMap>

/// Something that happened to a watched file or folder: when, where, and what. A value that never
/// changes.
class CDEvent
{
public:
    CDEvent(quint64 identifier, const QDateTime &date, const QUrl &url, quint32 flags);

    quint64 identifier() const { return m_identifier; } ///< Ascending within the process.
    const QDateTime &date() const { return m_date; }    ///< When it was received.
    const QUrl &url() const { return m_url; }           ///< A file URL.
    quint32 flags() const { return m_flags; }           ///< platform::FileEventFlag.

    bool isGenericChange() const { return m_flags == 0; }
    bool mustRescanSubDirectories() const { return m_flags & 1; } ///< Events were lost ...
    bool isUserDropped() const { return m_flags & 2; }
    bool isKernelDropped() const { return m_flags & 4; } ///< ... by the system.
    bool isEventIdentifiersWrapped() const { return m_flags & 8; }
    bool isHistoryDone() const { return m_flags & 16; }
    bool isRootChanged() const { return m_flags & 32; } ///< A folder on the way to the path.
    bool didVolumeMount() const { return m_flags & 64; }
    bool didVolumeUnmount() const { return m_flags & 128; }
    bool isCreated() const { return m_flags & 256; }
    bool isRemoved() const { return m_flags & 512; }
    bool isInodeMetadataModified() const { return m_flags & 1024; }
    bool isRenamed() const { return m_flags & 2048; }
    bool isModified() const { return m_flags & 4096; }
    bool isFinderInfoModified() const { return m_flags & 8192; }
    bool didChangeOwner() const { return m_flags & 16384; }
    bool isXattrModified() const { return m_flags & 32768; }
    bool isFile() const { return m_flags & 65536; }
    bool isDir() const { return m_flags & 131072; }
    bool isSymlink() const { return m_flags & 262144; }

    /// The keys "identifier", "flags", "date" and "URL", of which a property list can be made, and
    /// back: nullopt for anything that lacks one of them.
    QVariantMap archived() const;
    static std::optional<CDEvent> unarchived(const QVariantMap &archive);

    QString description() const;

    bool operator==(const CDEvent &) const = default;

private:
    quint64 m_identifier;
    QDateTime m_date;
    QUrl m_url;
    quint32 m_flags;
};
