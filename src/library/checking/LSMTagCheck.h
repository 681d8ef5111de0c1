#pragma once

#include "library/checking/LSMFindingList.h"
#include "library/checking/LSMHtmlTags.h"

/// The rules of the places where listings are shown, for pictures, other files and scripts,
/// held against the tags of a design's HTML. Borrows what it is made with; any thread.
class LSMTagCheck
{
public:
    /// `plain` is the HTML without its expressions, which stand in the HTML at the same places.
    LSMTagCheck(const QString &html, const QString &plain, LSMFindingList &findings)
        : m_html(html), m_plain(plain), m_findings(findings)
    {
    }

    void check(const LSMHtmlTags::Tag &tag); ///< A start tag of `plain`.

private:
    QStringView original(QStringView inPlain) const;
    void checkAddresses(const LSMHtmlTags::Tag &tag);
    void checkPictureSet(QStringView set);                    ///< Of several sizes, in the HTML.
    void checkStyle(QStringView css);                         ///< In the HTML.
    void checkAddress(QStringView address, const char *text); ///< In the HTML.
    void checkRepetitions(const LSMHtmlTags::Tag &tag);
    void checkScript(const LSMHtmlTags::Tag &tag);

    const QString &m_html;
    const QString &m_plain;
    LSMFindingList &m_findings;
};
