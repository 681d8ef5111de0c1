#pragma once

#include "platform/FileEventStream.h"

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
    quint32 flags() const { return m_flags; }           ///< platform::FileEventFlag, one by one:

    bool isGenericChange() const { return m_flags == 0; }
    bool mustRescanSubDirectories() const { return has(platform::FileEventFlag::MustScanSubDirs); }
    bool isUserDropped() const { return has(platform::FileEventFlag::UserDropped); }
    bool isKernelDropped() const { return has(platform::FileEventFlag::KernelDropped); }
    bool isEventIdentifiersWrapped() const { return has(platform::FileEventFlag::EventIdsWrapped); }
    bool isHistoryDone() const { return has(platform::FileEventFlag::HistoryDone); }
    bool isRootChanged() const { return has(platform::FileEventFlag::RootChanged); }
    bool didVolumeMount() const { return has(platform::FileEventFlag::Mount); }
    bool didVolumeUnmount() const { return has(platform::FileEventFlag::Unmount); }
    bool isCreated() const { return has(platform::FileEventFlag::ItemCreated); }
    bool isRemoved() const { return has(platform::FileEventFlag::ItemRemoved); }
    bool isInodeMetadataModified() const { return has(platform::FileEventFlag::ItemInodeMetaMod); }
    bool isRenamed() const { return has(platform::FileEventFlag::ItemRenamed); }
    bool isModified() const { return has(platform::FileEventFlag::ItemModified); }
    bool isFinderInfoModified() const { return has(platform::FileEventFlag::ItemFinderInfoMod); }
    bool didChangeOwner() const { return has(platform::FileEventFlag::ItemChangeOwner); }
    bool isXattrModified() const { return has(platform::FileEventFlag::ItemXattrMod); }
    bool isFile() const { return has(platform::FileEventFlag::ItemIsFile); }
    bool isDir() const { return has(platform::FileEventFlag::ItemIsDir); }
    bool isSymlink() const { return has(platform::FileEventFlag::ItemIsSymlink); }

    /// The keys "identifier", "flags", "date" and "URL", of which a property list can be made, and
    /// back: nullopt for anything that lacks one of them.
    QVariantMap archived() const;
    static std::optional<CDEvent> unarchived(const QVariantMap &archive);

    QString description() const;

    bool operator==(const CDEvent &) const = default;

private:
    bool has(quint32 flag) const { return m_flags & flag; }

    quint64 m_identifier;
    QDateTime m_date;
    QUrl m_url;
    quint32 m_flags;
};
