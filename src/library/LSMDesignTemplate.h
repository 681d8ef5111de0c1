#pragma once

#include "platform/ObservableDictionary.h"
#include "platform/PropertyList.h"

#include <functional>
#include <memory>
#include <optional>
#include <QColor>
#include <QFont>
#include <QImage>
#include <QObject>

/// One design: a bundle on disk, or an old single file, held in memory. Owned by its group through
/// std::shared_ptr; everybody else borrows it. Made on any thread and then belongs to the main one.
///
/// Invariants: a design with a null `templatePath` has no bundle. All that Info.plist holds is in
/// `templateDictionary`, and every value derived from it is read there, never duplicated; a save
/// writes that dictionary whole, in the form (XML or binary) it was read in. The dirty mark is set
/// by every edit and cleared only by a save or a revert.
///
/// The HTML's bytes are read when the design is made and decoded when they are first asked for; the
/// picture is read when it is first asked for.
class LSMDesignTemplate : public QObject
{
    Q_OBJECT
    Q_PROPERTY(QString htmlSourceCode READ htmlSourceCode WRITE setHtmlSourceCode NOTIFY
                   htmlSourceCodeDidChange)
    Q_PROPERTY(bool templateShouldBeSaved READ templateShouldBeSaved WRITE setTemplateShouldBeSaved
                   NOTIFY templateShouldBeSavedDidChange)
    Q_PROPERTY(
        bool paidTemplate READ isPaidTemplate WRITE setPaidTemplate NOTIFY paidTemplateDidChange)
    Q_PROPERTY(std::shared_ptr<platform::ObservableDictionary> templateDictionary READ
                   templateDictionary NOTIFY templateDictionaryDidChange)
    Q_PROPERTY(QString templateName READ templateName NOTIFY templateNameDidChange)
    Q_PROPERTY(
        QFont outlineViewTextFont READ outlineViewTextFont NOTIFY templateShouldBeSavedDidChange)
    Q_PROPERTY(QColor outlineViewTextColor READ outlineViewTextColor NOTIFY paidTemplateDidChange)

public:
    enum class Version { Bundle, Old };

    /// From the root of an Info.plist. A dictionary without a string `CFBundleName` takes the name
    /// of the folder as its title, in memory only: the dictionary stays as it is.
    static std::shared_ptr<LSMDesignTemplate>
    templateWithDict(const QVariantMap &dictionary, const QString &path, const QString &type,
                     platform::PropertyList::Format format = platform::PropertyList::Format::Xml);

    /// With the default dictionary for the title, which is required. A null path gives a design
    /// without a bundle.
    static std::shared_ptr<LSMDesignTemplate> templateWithTitle(const QString &title,
                                                                const QString &path,
                                                                const QString &type,
                                                                Version version = Version::Bundle);

    static QVariantMap defaultTemplateDictionaryWithTitle(const QString &title);

    /// The design as it stands on disk, with a null path: unsaved edits are not copied. Its picture
    /// is read at once and its `templateImagePath` stays the source's, so that its first save
    /// writes the picture. An old single file is copied as a bundle. Null for any other design that
    /// has no readable Info.plist on disk.
    std::shared_ptr<LSMDesignTemplate> copy() const;

    // Where it stands
    QString templatePath() const { return m_templatePath; }
    void setTemplatePath(const QString &path) { m_templatePath = path; }
    QString type() const { return m_type; }
    void setType(const QString &type) { m_type = type; }
    bool isBuiltInDesignTemplate() const;
    bool isCustomDesignTemplate() const { return !isBuiltInDesignTemplate(); }
    bool isOldVersion() const { return m_version == Version::Old; }
    void setVersion(Version version) { m_version = version; }
    platform::PropertyList::Format infoFormat() const { return m_infoFormat; }

    /// A folder whose files the first save brings into the new bundle: those of a design that was
    /// deleted and brought back. Null for others.
    QString keptFilesPath() const { return m_keptFilesPath; }
    void setKeptFilesPath(const QString &path) { m_keptFilesPath = path; }

    /// `body.html` in the bundle, or the old file itself. Null without a path.
    QString bodyPath() const;

    /// What the body is known to hold on disk: as it was read or written last, or as somebody has
    /// decided about it. Another program has written it since if it holds other bytes; not one that
    /// cannot be read, which a save makes anew.
    void noteBodyOnDisk(const QByteArray &bytes) { m_bodyOnDisk = qHash(bytes); }
    bool bodyDiffersOnDisk() const;

    // What it says
    QString htmlSourceCode() const;
    void setHtmlSourceCode(const QString &html);

    /// The HTML has changed; `read` gives it when it is next asked for, so that a long text is not
    /// copied at every key.
    void setHtmlSourceCodeFrom(std::function<QString()> read);
    bool templateShouldBeSaved() const { return m_shouldBeSaved; }
    void setTemplateShouldBeSaved(bool shouldBeSaved);

    QImage templateImage() const; ///< Null when there is none, or none that can be read.
    void setTemplateImage(const QImage &image);
    QString templateImagePath() const;
    void setTemplateImagePath(const QString &path) { m_templateImagePath = path; }

    bool isPaidTemplate() const { return m_paid; }

    /// Marking a design paid adds `designStore` with today's `releaseDate` where there is none.
    /// Unmarking changes no data: the next save drops `designStore`.
    void setPaidTemplate(bool paid);

    std::shared_ptr<platform::ObservableDictionary> templateDictionary() const
    {
        return m_dictionary;
    }
    QString templateName() const;
    QString templateIdentifier() const;
    QStringList keywords() const;                  ///< Those that are strings.
    void setKeywords(const QStringList &keywords); ///< What is no string stays, behind them.
    QStringList remoteResources() const;
    void setRemoteResources(const QStringList &urls);

    /// The layouts that the HTML names, each once, in order, underscores turned into blanks.
    QStringList layoutNames() const;
    QString defaultLayoutName() const; ///< Null when no layout is marked as the default one.

    /// "Previews generated: ..." from the date of the default layout's sample, or null. Kept until
    /// set to null.
    QString layoutPreviewGenerationDateString();
    void setLayoutPreviewGenerationDateString(const QString &text);

    // The outline's cell
    QFont outlineViewTextFont() const; ///< Bold when dirty.
    QColor
    outlineViewTextColor() const; ///< Red when paid; invalid stands for the usual text colour.

    /// Reads the HTML again. Always true: a file that cannot be read is logged and counts as empty.
    bool readHtmlSourceCode(platform::Error *outError);

    /// Forgets the picture and its path: they are looked for again, thumbnail.png first, then
    /// thumbnail.jpg, when they are next asked for.
    void readTemplateImage();

    /// Reads Info.plist and the HTML again and clears the dirty mark; the picture and the paid mark
    /// stay. For custom designs that have a path; anything else is left alone.
    void revertToSaved();

Q_SIGNALS:
    void htmlSourceCodeDidChange();
    void templateShouldBeSavedDidChange();
    void paidTemplateDidChange();
    void templateDictionaryDidChange();
    void templateNameDidChange();
    void templateImageDidChange();

private:
    LSMDesignTemplate(const QString &title, const QString &path, const QString &type,
                      Version version);
    void setDictionary(const QVariantMap &values);
    void settleOnMainThread();
    std::shared_ptr<LSMDesignTemplate> copyOfOldVersion() const;
    QString pathOfPicture() const;

    QString m_title; // stands in for a missing CFBundleName
    QString m_templatePath;
    QString m_keptFilesPath;
    QString m_type;
    Version m_version;
    platform::PropertyList::Format m_infoFormat = platform::PropertyList::Format::Xml;
    size_t m_bodyOnDisk = 0;
    mutable QByteArray m_htmlBytes; // these two until m_html is asked for
    mutable std::function<QString()> m_readHtml;
    mutable QString m_html;
    bool m_shouldBeSaved = false;
    bool m_paid = false;
    mutable std::optional<QImage> m_image;
    mutable std::optional<QString> m_templateImagePath; // until it is asked for
    std::shared_ptr<platform::ObservableDictionary> m_dictionary;
    QString m_generationDateString;
};

Q_DECLARE_METATYPE(std::shared_ptr<platform::ObservableDictionary>)
