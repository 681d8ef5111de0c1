#pragma once

#include "platform/Error.h"

#include <QSet>
#include <QVariantMap>

/// A named set of the editor's colours and colouring switches, as a scheme file holds it. Its
/// properties are those of the editor view's theme (QColor and bool) and `displayName`; all are
/// there always. Shared by those who show it; main thread.
class MGSColourScheme
{
public:
    MGSColourScheme(); ///< The catalogue's defaults, called "Custom Settings".
    static MGSColourScheme schemeWithDictionary(const QVariantMap &values); ///< Over the defaults.
    static MGSColourScheme schemeWithFile(const QString &path);             ///< Over the defaults.

    QVariant value(const QString &property) const { return m_values.value(property); }
    void setValue(const QString &property, const QVariant &value); ///< Unknown ones are ignored.
    QString displayName() const;
    void setDisplayName(const QString &name);

    QString sourceFile() const { return m_sourceFile; } ///< Null for one that is in no file.
    void setSourceFile(const QString &path) { m_sourceFile = path; }
    bool isLoadedFromBundle() const { return m_loadedFromBundle; }
    void setLoadedFromBundle(bool loaded) { m_loadedFromBundle = loaded; }

    QVariantMap dictionaryRepresentation() const { return m_values; }
    void setDictionaryRepresentation(const QVariantMap &values);

    /// The form of the file: colours as text. Setting it leaves out what is of another kind.
    QVariantMap propertyListRepresentation() const;
    void setPropertyListRepresentation(const QVariantMap &values);

    /// The path becomes the source file. Asserts that there is a file, and that it holds a
    /// dictionary.
    void propertiesLoadFromFile(const QString &path);
    bool propertiesSaveToFile(const QString &path, platform::Error *error = nullptr) const;

    /// In all but the name. Colours are equal when their texts are.
    bool isEqualToScheme(const MGSColourScheme &scheme) const;

    static QSet<QString> propertiesOfTypeBool();
    static QSet<QString> propertiesOfTypeColor();
    static QSet<QString> propertiesOfTypeString();
    static QSet<QString> propertiesAll();
    static QStringList propertiesOfScheme(); ///< Without the name.

private:
    QVariantMap m_values;
    QString m_sourceFile;
    bool m_loadedFromBundle = false;
};
