// Registers a plant's settings service for CoCreateInstance.
#pragma once

#include <windows.h>

namespace refhost
{
class Plant;

/// During its lifetime CoCreateInstance of the settings service returns that of the plant. COM must be
/// initialised on this thread for all of it. Throws PlantError if the class cannot be registered.
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
