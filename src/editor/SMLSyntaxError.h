#pragma once

#include <QColor>
#include <QIcon>
#include <QObject>
#include <QVariantMap>

/// One thing that is wrong in a text, as a client of the editor puts it. A value; clients hand
/// lists of them over as variants. Numbers beyond the text are no fault: see
/// MGSSyntaxErrorController.
class SMLSyntaxError
{
    Q_GADGET
    Q_PROPERTY(quint64 line MEMBER line)
    Q_PROPERTY(quint64 character MEMBER character)
    Q_PROPERTY(quint64 length MEMBER length)
    Q_PROPERTY(QString errorDescription MEMBER errorDescription)
    Q_PROPERTY(bool hidden MEMBER hidden)
    Q_PROPERTY(QColor errorLineHighlightColor MEMBER errorLineHighlightColor)
    Q_PROPERTY(float warningLevel READ warningLevel WRITE setWarningLevel)
    Q_PROPERTY(QIcon warningImage READ warningImage WRITE setWarningImage)

public:
    SMLSyntaxError() = default;

    /// By the names of the properties. A key that is none, or a value of the wrong class, is left
    /// out with a line in the log.
    explicit SMLSyntaxError(const QVariantMap &fields);
    static SMLSyntaxError errorWithDictionary(const QVariantMap &fields);
    static SMLSyntaxError errorWithDescription(const QString &description, float ofLevel,
                                               quint64 atLine);

    quint64 line = 1;               ///< One-based.
    quint64 character = 1;          ///< One-based, in UTF-16 units, within the line.
    quint64 length = 0;             ///< UTF-16 units; 0: the whole line.
    QString errorDescription;       ///< What people read.
    bool hidden = false;            ///< Counts for nothing.
    QColor errorLineHighlightColor; ///< Of the line; invalid: the editor's.

    float warningLevel() const { return m_warningLevel; } ///< 0 to 600 and above.
    void setWarningLevel(float level) { m_warningLevel = level; }

    /// The badge: that of the level, unless one was set by hand.
    QIcon warningImage() const;
    void setWarningImage(const QIcon &image) { m_manualImage = image; }

    /// One for each hundred, from "messagesAccess" below 100 to "messagesPanic" from 600 on. Made
    /// once each; main thread.
    static QIcon defaultImageForWarningLevel(float level);

    QString description() const; ///< One line for logs.

private:
    float m_warningLevel = 450;
    QIcon m_manualImage;
};
