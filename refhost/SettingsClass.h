// Offers a plant's settings service for creation by class identifier.
#pragma once

#include <windows.h>

namespace refhost
{
class Plant;

/// As long as it lives, CoCreateInstance of the settings service gives that of the plant. COM must be
/// initialised in this thread from before until after. Throws PlantError if the class cannot be registered.
class SettingsClass
{
public:
    explicit SettingsClass(Plant& plant);
    ~SettingsClass();
    SettingsClass(const SettingsClass&) = delete;
    SettingsClass& operator=(const SettingsClass&) = delete;

private:
    DWORD m_registration = 0;
};
} // namespace refhost
