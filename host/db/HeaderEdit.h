#pragma once

/// Changes of a drawing's settings.

#include "CurrentSettings.h"
#include "PackedGroups.h"
#include "UndoEdit.h"

#include <string>

/// The value of a variable of the header.
class HeaderEdit final : public UndoEdit
{
public:
    HeaderEdit(std::string_view name, const PackedGroups& value) : mName(name), mValue(value) {}
    void exchange(AcDbDatabase& database) override;
    void tell(AcDbDatabase& database) const override;

private:
    std::string mName;
    PackedGroups mValue;
};

class SettingsEdit final : public UndoEdit
{
public:
    explicit SettingsEdit(const CurrentSettings& settings) : mSettings(settings) {}
    void exchange(AcDbDatabase& database) override;
    void tell(AcDbDatabase& database) const override;

private:
    CurrentSettings mSettings;
};
