#pragma once

#include "platform/text/TextPattern.h"

struct URegularExpression;

namespace platform {

/// The pattern of a regular expression, which ICU runs on the storage itself, without a copy.
class ExpressionPattern : public TextPattern
{
public:
    static std::unique_ptr<TextPattern> compile(const TextQuery &query, Error *error);

    std::optional<QString> replacement(const TextStorage &storage, TextRange match,
                                       const QString &text, Error *error) override;

protected:
    Step search(const TextStorage &storage, qsizetype position, QDeadlineTimer deadline) override;

private:
    struct Close
    {
        void operator()(URegularExpression *expression) const;
    };
    using Handle = std::unique_ptr<URegularExpression, Close>;

    explicit ExpressionPattern(Handle handle) : m_handle(std::move(handle)) {}
    void readFrom(const TextStorage &storage);
    int group(QStringView name) const;
    QString groupText(const TextStorage &storage, int group) const;

    Handle m_handle;
    const TextStorage *m_storage = nullptr; ///< That the expression reads, at this revision.
    quint64 m_revision = 0;
};

} // namespace platform
