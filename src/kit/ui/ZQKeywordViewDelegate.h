#pragma once

#include <optional>
#include <QTextLayout>
#include <QVariantList>

class ZQKeywordView;

/// The text of a badge, with formats that go over the badge's own.
struct ZQKeywordText
{
    QString string;
    QList<QTextLayout::FormatRange> formats;

    friend bool operator==(const ZQKeywordText &, const ZQKeywordText &) = default;
};

/// Says how a `ZQKeywordView` shows its keywords, and hears what becomes of them; each operation is
/// optional. The texts are asked for when the keywords change. Main thread.
class ZQKeywordViewDelegate
{
public:
    virtual ~ZQKeywordViewDelegate() = default;

    /// Nothing: the attributed one stands before the plain one, the plain one before the keyword.
    virtual std::optional<ZQKeywordText> attributedStringToDrawForKeyword(ZQKeywordView *,
                                                                          const QString &)
    {
        return {};
    }
    virtual std::optional<QString> stringToDrawForKeyword(ZQKeywordView *, const QString &)
    {
        return {};
    }
    virtual std::optional<QString> tooltipForKeyword(ZQKeywordView *, const QString &)
    {
        return {};
    }

    /// The selected objects of the array controller are others, by whatever cause.
    virtual void selectionChangedTo(ZQKeywordView *, const QVariantList &) {}

    virtual void didSelectKeyword(ZQKeywordView *, const QString &) {} ///< The user did.
    virtual void didUnselectKeyword(ZQKeywordView *, const QString &) {}

    /// The user is about to replace these by one other.
    virtual void didUnselectKeywords(ZQKeywordView *, const QVariantList &) {}
};
