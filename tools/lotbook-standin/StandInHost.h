#pragma once

#include <optional>
#include <QDBusContext>
#include <QObject>

/// What the stand-in is told to do wrong, and what it lists.
struct StandInOptions
{
    QString title = QStringLiteral("Vintage Brass Lamp");
    double delay = 0;            ///< Seconds before each answer.
    QString failingProperty;     ///< Setting it is answered with an error.
    std::optional<int> dieAfter; ///< So many answers; the next call ends it.
    std::optional<int> renders;  ///< How often it writes a description at the most.
    bool rendersHuge = false;    ///< 50 MB
};

/// Lotbook as scripts see it: one listing, which is selected and has a title, a design and a
/// layout, and the template that was selected last. Each change of the listing renders it into
/// GeneratedDescriptions, if the host's preference `writeDescriptionToLibrary` says so.
class StandInHost : public QObject, protected QDBusContext
{
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "com.quillbyte.Scripting")

public:
    explicit StandInHost(StandInOptions options);

    /// Takes the name on the session bus; false if there is no bus or the name is taken.
    bool start();

public Q_SLOTS:
    Q_SCRIPTABLE QString Get(const QString &name, const QString &object);
    Q_SCRIPTABLE void Set(const QString &name, const QString &object, const QString &value);
    Q_SCRIPTABLE QString Perform(const QString &command, const QString &value);

private:
    QString *property(const QString &name, const QString &object);
    void answerLateOrDie();
    void refuse(const QString &description);
    void render();
    void write(const QString &below, const QByteArray &html) const;

    StandInOptions m_options;
    int m_answers = 0;
    int m_renderings = 0;
    QString m_title;
    QString m_designIdentifier;
    QString m_layoutName;
    QString m_selectedTemplate;
};
