#pragma once

/// The variables of one expression.

#include <map>
#include <string_view>

namespace expression
{
class Variables
{
public:
    /// The value of a variable, which starts at 0; the reference stays good. The text of the name has to
    /// outlive the object.
    double& find(std::string_view name)
    {
        for (int i = 0; i < m_count; ++i)
            if (m_first[i].name == name) return m_first[i].value;
        return m_count < firstCount ? addFirst(name) : m_others[name];
    }

private:
    struct Variable {
        std::string_view name;
        double value;
    };

    double& addFirst(std::string_view name)
    {
        m_first[m_count] = {name, 0};
        return m_first[m_count++].value;
    }

    // Few expressions have more variables than can be looked through at once.
    static constexpr int firstCount = 8;
    Variable m_first[firstCount];
    int m_count = 0;
    std::map<std::string_view, double> m_others;
};
} // namespace expression
