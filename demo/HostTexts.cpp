#include "HostTexts.h"

const HostTexts& HostTextsIn(const std::wstring& language)
{
    static const HostTexts english = {.chooseProject = L"Choose a project",
                                      .noneOfThese = L"None of these",
                                      .chooseTemplate = L"Choose a template",
                                      .withoutTemplate = L"No template",
                                      .choosePlanType = L"Choose a plan type",
                                      .welding = L"Welding, by robot or by hand",
                                      .turning = L"Turning"};
    static const HostTexts german = {.chooseProject = L"Projekt auswählen",
                                     .noneOfThese = L"Keines davon",
                                     .chooseTemplate = L"Vorlage auswählen",
                                     .withoutTemplate = L"Ohne Vorlage",
                                     .choosePlanType = L"Plantyp auswählen",
                                     .welding = L"Schweißen, mit Roboter oder von Hand",
                                     .turning = L"Drehen"};
    return language == L"de" ? german : english;
}
