#include "SelectionFilter.h"

#include "acutads.h"
#include "VariableStore.h"

#include <algorithm>

namespace ed
{
/// Reads a filter from a list.
class FilterReader
{
public:
    explicit FilterReader(const resbuf* list) : mAt(list) {}

    std::optional<SelectionFilter> read()
    {
        while (mAt && !mIsFaulty) readNode();
        if (mIsFaulty || mOpen.size() != 1) return std::nullopt;
        SelectionFilter made;
        made.mRoot = std::move(mOpen.front());
        made.mCodes = mCodes;
        putQuickFirst(made.mRoot);
        return made;
    }

private:
    using Join = SelectionFilter::Join;
    using Node = SelectionFilter::Node;

    static constexpr short operatorCode = -4, xdataCode = -3;

    /// Names and handles say which entity, not what kind; extended data stand behind -3.
    static bool isPassedOver(short code)
    {
        return code == -1 || code == -2 || code == 5 || (code >= 1000 && code <= 1071);
    }

    void readNode()
    {
        const resbuf& node = *mAt;
        mAt = mAt->rbnext;
        if (node.restype == operatorCode)
            readOperator(node.resval.rstring);
        else if (node.restype == xdataCode)
            readApplications();
        else if (!isPassedOver(node.restype))
            addTest(FilterTest::ofGroup(node, {}));
    }

    void readOperator(const wchar_t* text)
    {
        const std::wstring name = text ? upperCase(text) : L"";
        if (const std::optional<Join> opened = joinOf(name, L'<', L'\0')) {
            mOpen.push_back({*opened, std::nullopt, {}});
        } else if (const std::optional<Join> closed = joinOf(name, L'\0', L'>')) {
            close(*closed);
        } else {
            readRelation(text);
        }
    }

    /// The join of a name with a sign before or behind it.
    static std::optional<Join> joinOf(std::wstring name, wchar_t before, wchar_t behind)
    {
        if (name.size() < 3 || (before && name.front() != before) || (behind && name.back() != behind))
            return std::nullopt;
        name = before ? name.substr(1) : name.substr(0, name.size() - 1);
        if (name == L"AND") return Join::all;
        if (name == L"OR") return Join::one;
        if (name == L"XOR") return Join::exactlyOne;
        if (name == L"NOT") return Join::none;
        return std::nullopt;
    }

    void close(Join join)
    {
        const std::size_t count = mOpen.back().parts.size();
        const bool isRight = mOpen.size() > 1 && mOpen.back().join == join &&
                             count == (join == Join::exactlyOne ? 2
                                       : join == Join::none     ? 1
                                                                : std::max<std::size_t>(count, 1));
        if (!isRight) {
            mIsFaulty = true;
            return;
        }
        Node done = std::move(mOpen.back());
        mOpen.pop_back();
        mOpen.back().parts.push_back(std::move(done));
    }

    /// The group behind a relation.
    void readRelation(const wchar_t* text)
    {
        const std::optional<Relations> relations = Relations::read(text);
        if (!relations || !mAt || mAt->restype < 0) {
            mIsFaulty = true;
            return;
        }
        const resbuf& group = *mAt;
        mAt = mAt->rbnext;
        if (!isPassedOver(group.restype)) addTest(FilterTest::ofGroup(group, *relations));
    }

    /// The names of applications behind -3, with or without brackets around them; other extended data say nothing.
    void readApplications()
    {
        for (; mAt && isXData(mAt->restype); mAt = mAt->rbnext) {
            if (mAt->restype != 1001 && mAt->restype != RTSTR) continue;
            if (mAt->resval.rstring)
                addTest(FilterTest::ofApplication(mAt->resval.rstring));
            else
                mIsFaulty = true;
        }
    }
    static bool isXData(short code)
    {
        return (code >= 1000 && code <= 1071) || code == RTLB || code == RTLE || code == RTSTR;
    }

    void addTest(std::optional<FilterTest> test)
    {
        if (!test) {
            mIsFaulty = true;
            return;
        }
        test->addCode(mCodes);
        mOpen.back().parts.push_back({Join::all, std::move(test), {}});
    }

    /// What is at hand is looked at before lists of groups are made.
    static void putQuickFirst(Node& node)
    {
        std::stable_partition(node.parts.begin(), node.parts.end(),
                              [](const Node& part) { return part.test && part.test->isQuick(); });
        for (Node& part : node.parts) putQuickFirst(part);
    }

    const resbuf* mAt;
    std::vector<Node> mOpen{1};
    GroupCodes mCodes;
    bool mIsFaulty = false;
};

std::optional<SelectionFilter> SelectionFilter::read(const resbuf* list)
{
    return FilterReader(list).read();
}

bool SelectionFilter::fits(const AcDbEntity& entity) const
{
    EntityGroups groups(entity, mCodes);
    return fits(mRoot, groups);
}

bool SelectionFilter::fits(const Node& node, EntityGroups& groups)
{
    if (node.test) return node.test->fits(groups);
    const auto fitsPart = [&groups](const Node& part) { return fits(part, groups); };
    const auto begin = node.parts.begin(), end = node.parts.end();
    switch (node.join) {
    case Join::all:
        return std::all_of(begin, end, fitsPart);
    case Join::one:
        return std::any_of(begin, end, fitsPart);
    case Join::exactlyOne:
        return std::count_if(begin, end, fitsPart) == 1;
    case Join::none:
        break;
    }
    return std::none_of(begin, end, fitsPart);
}
} // namespace ed
