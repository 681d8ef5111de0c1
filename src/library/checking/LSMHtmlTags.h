#pragma once

#include <functional>
#include <QStringList>
#include <vector>

/// The tags of a piece of HTML as they are written, well-formed or not: no tree is made of them.
/// Comments are passed over, and no tags are looked for within `<script>` and `<style>`. Pure
/// functions; any thread; time in proportion to the text.
namespace LSMHtmlTags {

struct Attribute
{
    QStringView name;  ///< As it is written.
    QStringView value; ///< Without its quotes; null where there is none.

    bool is(QLatin1StringView attributeName) const; ///< In any case.
};

struct Tag
{
    qsizetype start = 0; ///< Of "<".
    qsizetype end = 0;   ///< Behind ">", or at the end of the text.
    QStringView name;    ///< As it is written, without "/".
    bool isEnd = false;
    std::vector<Attribute> attributes;
    QStringView rawText; ///< Of `<script>` and `<style>`: all up to the end tag.

    bool is(QLatin1StringView tagName) const; ///< In any case.
    const Attribute *attribute(QLatin1StringView attributeName) const;
};

/// Views are borrowed from the HTML. A false result ends the walk.
void forEachTag(QStringView html, const std::function<bool(const Tag &)> &function);

/// The tags that have no partner in the HTML, as "b" and "/b", in small letters.
QStringList unbalanced(QStringView html);

} // namespace LSMHtmlTags
