#pragma once

#include <functional>
#include <QString>
#include <vector>

/// The tags of a piece of HTML as they are written, well-formed or not: no tree is made of them.
/// Comments, and what stands within `<script>` and `<style>`, are passed over. Pure functions; any
/// thread; time in proportion to the text.
namespace LSMHtmlTags {

struct Attribute
{
    QStringView name;  ///< As it is written.
    QStringView value; ///< Without its quotes; null where there is none.
};

struct Tag
{
    qsizetype start = 0; ///< Of "<".
    qsizetype end = 0;   ///< Behind ">", or at the end of the text.
    QStringView name;    ///< As it is written, without "/".
    bool isEnd = false;
    std::vector<Attribute> attributes;

    bool is(QLatin1StringView tagName) const; ///< In any case.
    const Attribute *attribute(QLatin1StringView attributeName) const;
};

/// Views are borrowed from the HTML. A false result ends the walk.
void forEachTag(QStringView html, const std::function<bool(const Tag &)> &function);

} // namespace LSMHtmlTags
