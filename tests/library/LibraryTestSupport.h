#pragma once

#include "library/LSMDesignTemplateManager.h"
#include "support/TestSupport.h"

#include <gtest/gtest.h>
#include <QDir>

using platform::PropertyList;
using DesignPointer = std::shared_ptr<LSMDesignTemplate>;

/// An empty home with the host's newest container in it, and what stands in the custom folder.
class LibraryTest : public testing::Test
{
    support::TemporaryHome m_home; // before the paths in it

protected:
    LibraryTest();

    const QString custom; ///< The folder of custom designs; not made yet.
    const QString builtin;

    QString home(const QString &below) const { return m_home.path(below); }
    QString bundle(const QString &name) const;

    /// Writes a bundle into `folder` and gives its path.
    static QString writeBundle(const QString &folder, const QString &name, const QVariantMap &info,
                               const QByteArray &body,
                               PropertyList::Format format = PropertyList::Format::Xml);
    static QVariantMap infoOf(const QString &bundlePath);
    static QByteArray bodyOf(const QString &bundlePath);
    static QVariantMap titled(const QString &title, QVariantMap more = {});
    static void writePicture(const QString &path, Qt::GlobalColor color);

    static DesignPointer newDesign(LSMDesignTemplateManager &manager, const QString &title,
                                   const QString &html);

    /// What `manager` holds under that title; null if nothing.
    static LSMDesignTemplate *designNamed(const LSMDesignTemplateManager &manager,
                                          const QString &title);
    static QStringList titles(const LSMDesignTemplateManager &manager);

    /// Paths, relative to `folder`, of all files and folders below it, with the files' bytes.
    static QMap<QString, QByteArray> snapshot(const QString &folder);
};
