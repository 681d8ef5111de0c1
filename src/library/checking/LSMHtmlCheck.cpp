#include "library/checking/LSMHtmlCheck.h"

#include "library/checking/LSMExpressionCheck.h"
#include "library/checking/LSMTagCheck.h"
#include "library/checking/LSMTidy.h"
#include "library/LSMDesignKeys.h"
#include "library/LSMPlaceholders.h"
#include "platform/Bundle.h"

#include <QRegularExpression>

using namespace Qt::StringLiterals;
using platform::localized;
using platform::TextRange;
using enum LSMFinding::Level;

namespace LSMHtmlCheck {

namespace {

using Part = LSMExpressionCheck::Part;

/// Of libtidy, which does not tell the gravest first.
constexpr qsizetype mostMessages = 10 * mostFindings;

/// One check of one text.
class Check
{
public:
    Check(const QString &html, const Context &context, const std::stop_token &stop)
        : m_html(html), m_stop(stop), m_findings(html),
          m_expressions(LSMExpressionCheck::check(html, context.properties, m_findings, stop))
    {
    }

    LSMFindings findings()
    {
        checkTags();
        if (!m_stop.stop_requested())
            checkForm();
        return m_findings.take(mostFindings);
    }

private:
    void checkTags();
    void checkForm();
    void leaveOneAlternative();
    QStringView original(TextRange range) const
    {
        return QStringView(m_html).sliced(range.location, range.length);
    }
    TextRange placeOf(const LSMTidy::Message &message) const;
    TextRange tagAt(qsizetype index) const;
    bool isInTag(qsizetype index) const;

    const QString &m_html;
    std::stop_token m_stop;
    LSMFindingList m_findings;
    LSMExpressionCheck::Result m_expressions;
    std::vector<TextRange> m_tags;
};

void Check::checkTags()
{
    LSMTagCheck check(m_html, m_expressions.plain, m_findings);
    LSMHtmlTags::forEachTag(m_expressions.plain, [&](const LSMHtmlTags::Tag &tag) {
        m_tags.push_back(TextRange::between(tag.start, tag.end));
        if (!tag.isEnd)
            check.check(tag);
        return !m_stop.stop_requested();
    });
}

// Parts in a row that open or close the same are for one place: all but one give way to blanks.
void Check::leaveOneAlternative()
{
    static const QRegularExpression nothing(u"^(?>\\s+|<!--(?>.*?-->))*+$"_s,
                                            QRegularExpression::DotMatchesEverythingOption);
    const QString plain = m_expressions.plain;
    const auto unbalanced = [&plain](TextRange contents) {
        return LSMHtmlTags::unbalanced(
            QStringView(plain).sliced(contents.location, contents.length));
    };
    for (size_t i = 1; i < m_expressions.parts.size() && !m_stop.stop_requested(); ++i) {
        const Part &former = m_expressions.parts[i - 1];
        const auto &[contents, whole] = m_expressions.parts[i];
        if (whole.location < former.whole.end() ||
            !nothing.match(original(TextRange::between(former.whole.end(), whole.location)))
                 .hasMatch())
            continue;
        const QStringList tags = unbalanced(contents);
        if (!tags.isEmpty() && tags == unbalanced(former.contents))
            std::fill_n(m_expressions.plain.begin() + contents.location, contents.length, u' ');
    }
}

// An expression in a tag may be a value, and parts that exclude each other may use a name twice.
void Check::checkForm()
{
    leaveOneAlternative();
    const auto messages = LSMTidy::messages(m_expressions.plain, mostMessages, m_stop);
    if (!messages && !m_stop.stop_requested())
        m_findings.add(Warning, localized("The form of the HTML is too odd to be checked."));
    if (!messages)
        return;
    m_findings.addLeftOut(messages->leftOut);
    for (const LSMTidy::Message &message : messages->list) {
        const TextRange place = placeOf(message);
        const bool isOfExpression =
            message.subject == LSMTidy::Subject::Attribute &&
            (original(place).contains(u"[[") ||
             (!m_expressions.parts.empty() && message.key == "ANCHOR_NOT_UNIQUE"));
        // In a value, as in an address with parameters, "&" need not begin anything.
        const bool isOfValue =
            message.subject == LSMTidy::Subject::Character && isInTag(message.index);
        if (!isOfExpression && !isOfValue)
            m_findings.add(place, message.level, message.text);
    }
}

bool Check::isInTag(qsizetype index) const
{
    const auto next = std::ranges::upper_bound(m_tags, index, {}, &TextRange::location);
    return next != m_tags.begin() && index < std::prev(next)->end();
}

TextRange Check::placeOf(const LSMTidy::Message &message) const
{
    constexpr QStringView comment = u"<!--";
    const qsizetype start = message.subject == LSMTidy::Subject::Comment
                                ? m_html.lastIndexOf(comment, message.index)
                                : -1;
    return start < 0 ? tagAt(message.index) : TextRange{start, comment.size()};
}

/// From "<" to ">", or the character there.
TextRange Check::tagAt(qsizetype index) const
{
    const qsizetype end = m_html.indexOf(u'>', index);
    const bool isTag = index < m_html.size() && m_html[index] == u'<' && end >= 0;
    return isTag ? TextRange::between(index, end + 1)
                 : TextRange{index, index < m_html.size() ? 1 : 0};
}

} // namespace

Context Context::of(const QVariantMap &info)
{
    Context context;
    for (const QVariant &record : info.value(LSMDesignKeys::properties).toList()) {
        const QString name = record.toMap().value(LSMDesignKeys::propertyName).toString();
        if (!name.isEmpty())
            context.properties.insert(LSMPlaceholders::nameOfProperty(name));
    }
    return context;
}

LSMFindings findings(const QString &html, const Context &context, const std::stop_token &stop)
{
    if (html.size() > longestHtml)
        return {{{}, Warning, localized("The HTML is too long to be checked."), 0, 0, 0}};
    return Check(html, context, stop).findings();
}

} // namespace LSMHtmlCheck
