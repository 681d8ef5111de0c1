#pragma once

#include <memory>
#include <optional>
#include <QMap>
#include <QStringList>
#include <QVariantMap>

class MGSSyntaxDefinition;

/// The register of the syntax definitions that exist, in the program and in the user's application
/// support folder (docs/syntax-definitions.md). Read once, when it is made; the definitions
/// themselves are read anew at each call. Main thread.
class MGSSyntaxController
{
public:
    /// One language of the register.
    struct Entry
    {
        QString name;
        QString file;            ///< Base name, without ".plist".
        QString extensions;      ///< As listed, separated by blanks; null or empty for none.
        qsizetype sortOrder = 0; ///< From 0, in the order of the lists.
    };

    /// Where lists and definitions are looked for, in this order.
    struct Places
    {
        QString resourceBundle; ///< Must hold the list of the program's own definitions.
        QString mainBundle;
        QString applicationSupport; ///< Need not exist.

        static Places standard();
    };

    static MGSSyntaxController &sharedInstance(); ///< At the standard places, made on first use.

    /// Throws AssertionFailure "framework syntax definitions not found" without a readable list in
    /// the resource bundle. Entries without a name or file and user's lists that cannot be read are
    /// logged and left out.
    explicit MGSSyntaxController(const Places &places);

    static QString standardSyntaxDefinitionName(); ///< "Standard"

    const QStringList &syntaxDefinitionNames() const { return m_names; } ///< In the lists' order.

    /// By lower-case name. Of two entries that differ only in case the later one is here, while
    /// both names are among `syntaxDefinitionNames`.
    const QMap<QString, Entry> &syntaxDefinitions() const { return m_definitions; }

    const Entry &standardSyntaxDefinition() const;

    /// In any case; the standard entry for an unknown name.
    const Entry &syntaxDefinitionWithName(const QString &name) const;

    /// The extension goes without a dot, in any case; it meets lower-case ones of the entries only.
    /// Where several entries have it, the lower-case name that sorts first wins. Null for none.
    const Entry *syntaxDefinitionWithExtension(const QString &extension) const;
    QString syntaxDefinitionNameWithExtension(const QString &extension) const;

    /// The extension that a "#!" line or a marker such as "%!PS" suggests; null for none.
    static QString guessSyntaxDefinitionExtensionFromFirstLine(const QString &line);

    /// The dictionary of the named definition's file, of the standard one where that has none.
    /// Nullopt when neither can be read; a file that is there and is no dictionary is logged.
    std::optional<QVariantMap> syntaxDictionaryWithName(const QString &name) const;

    /// The definition made from that dictionary, under the name as given; never null. For one with
    /// values of the wrong type, which is logged, the standard one stands in.
    std::shared_ptr<const MGSSyntaxDefinition> loadDefinition(const QString &name) const;

private:
    void add(const QVariantList &entries);
    void add(const QVariantMap &listed);
    std::optional<QVariantMap> dictionaryOfFile(const QString &file) const;

    Places m_places;
    QMap<QString, Entry> m_definitions;
    QStringList m_names;
};
