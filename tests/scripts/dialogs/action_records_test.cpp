// Random records of a script action: to open the dialog and press OK writes what a small model of the rules
// says, or shows the warning that it says.
#include "ActionFixture.h"

#include <map>
#include <optional>
#include <random>

namespace
{
using namespace action_dialog;

/// A value of the host, and what it reads as.
struct Sample
{
    MemoryValue value;
    std::optional<std::string> text;
    std::optional<LONG> number;
    std::optional<bool> flag;
    bool word = false;
    const struct Referred* object = nullptr;
};

/// An object that a value refers to.
struct Referred
{
    std::string name; ///< in the host's record
    bool isData = true;
    bool hasName = true; ///< whether its name can be read
    std::optional<std::string> shown;
};

/// What is written, by the rules.
struct Model
{
    std::string name;
    std::string prompt;
    std::optional<std::string> script;
    std::optional<std::string> scriptEntry;
    std::optional<std::string> planType;
    std::optional<std::string> planTypeEntry;
    std::optional<std::string> typeEntry;
    bool hasMark = false;
    LONG actionType = 0;
    LONG beforeAfter = 0;
    LONG sequence = 0;
    LONG enabled = 0;

    /// Returns false if the load ends here.
    static bool LoadObject(const Sample& sample, std::optional<std::string>& object,
                           std::optional<std::string>& entry)
    {
        if (!sample.object)
            return true;
        if (!sample.object->isData)
            return false;
        object = sample.object->name;
        if (sample.object->hasName)
            entry = sample.object->shown;
        return sample.object->hasName;
    }

    bool Load(const std::string& attribute, const Sample& sample)
    {
        std::optional<std::string> hidden;
        if (attribute == "m_name")
            name = sample.text.value_or(name);
        else if (attribute == "m_prompt")
            prompt = sample.text.value_or(prompt);
        else if (attribute == "m_pScript")
            return LoadObject(sample, script, scriptEntry);
        else if (attribute == "orvoplantype")
            hasMark = sample.word;
        else if (attribute == "m_pType" && !hasMark && sample.text && !sample.text->empty())
            typeEntry = sample.text;
        else if (attribute == "m_pPlanType")
            return LoadObject(sample, planType, hasMark ? planTypeEntry : hidden);
        else if (attribute == "m_actionType")
            actionType = sample.number.value_or(actionType);
        else if (attribute == "m_beforeAfter")
            beforeAfter = sample.number.value_or(beforeAfter);
        else if (attribute == "m_iSequence")
            sequence = sample.number.value_or(sequence);
        else if (attribute == "m_bEnabled")
            enabled = sample.flag.value_or(enabled != 0) ? 1 : 0;
        return true;
    }

    const wchar_t* Warning(const wchar_t* noType, const wchar_t* noScript) const
    {
        if (!typeEntry && !planTypeEntry)
            return noType;
        return scriptEntry ? nullptr : noScript;
    }

    /// An entry without a text clears its object; one that is not shown, too.
    static std::string Object(const std::optional<std::string>& object,
                              const std::optional<std::string>& entry)
    {
        return object && entry && !entry->empty() ? "UNKNOWN " + *object : "EMPTY";
    }

    std::string Written() const
    {
        return "action.SetAttributes(m_name = BSTR '" + name + "', m_prompt = BSTR '" + prompt +
               "', m_pScript = " + Object(script, scriptEntry) + ", m_pType = BSTR '" +
               typeEntry.value_or("") + "', m_pPlanType = " + Object(planType, planTypeEntry) +
               ", m_actionType = I4 " + std::to_string(actionType) + ", m_beforeAfter = I4 " +
               std::to_string(beforeAfter) + ", m_iSequence = I4 " + std::to_string(sequence) +
               ", m_bEnabled = I4 " + std::to_string(enabled) + ")";
    }
};

const std::vector<std::string> kAttributes = {"m_name",      "m_prompt",    "m_pScript",    "orvoplantype",
                                              "m_pType",     "m_pPlanType", "m_actionType", "m_beforeAfter",
                                              "m_iSequence", "m_bEnabled"};

/// The parameter is the seed.
class RandomActions : public ActionFixture, public ::testing::WithParamInterface<unsigned>
{
protected:
    RandomActions()
    {
        values->Value(L"Later", 7);
        objects = {{"good", true, true, "Good"},          {"other", true, true, "Other \xC3\xBC"},
                   {"unnamed", true, true, ""},           {"empty", true, true, ""},
                   {"odd", true, true, std::nullopt},     {"mute", true, false, std::nullopt},
                   {"strange", false, true, std::nullopt}};
        AddObjects();
        AddValues();
    }

    void AddObjects()
    {
        for (const Referred& object : objects)
            m_made.push_back(host.Object(object.name));
        m_made[0]->Set(L"m_name", L"Good");
        m_made[1]->Set(L"m_name", L"Other \x00FC");
        m_made[3]->Set(L"m_name", L"");
        m_made[4]->Set(L"m_name", m_made[0]);
        m_made[5]->Fail(L"m_name", E_FAIL);
        m_made[6]->offersData = false;
        for (std::size_t index = 0; index < objects.size(); ++index)
            samples.push_back({MemoryValue(static_cast<IQP_BaseDataObject*>(m_made[index].get())),
                               {},
                               {},
                               {},
                               true,
                               &objects[index]});
        static const Referred nothing{"null", false, false, {}};
        samples.push_back({MemoryValue(static_cast<IUnknown*>(nullptr)), {}, {}, {}, false, &nothing});
    }

    void AddValues()
    {
        samples.push_back({MemoryValue(), "", 0, false, false});
        samples.push_back({L"", "", {}, {}, true});
        samples.push_back({L"Grind", "Grind", {}, {}, true});
        samples.push_back({L"\x4E2D \x05D0 \x00DF", "\xE4\xB8\xAD \xD7\x90 \xC3\x9F", {}, {}, true});
        samples.push_back({L"cell", "cell", {}, {}, true});
        samples.push_back({L"0", "0", 0, false, true});
        samples.push_back({L"1", "1", 1, true, true});
        samples.push_back({L"-44", "-44", -44, true, true});
        for (const LONG number : {0, 1, 2, 7, 24, 25, 99, -1, INT_MAX})
            samples.push_back({number, std::to_string(number), number, number != 0, number != 0});
        samples.push_back({true, "-1", -1, true, true});
        samples.push_back({false, "0", 0, false, false});
    }

    const Sample& Any() { return samples[random() % samples.size()]; }

    /// More often than not a value that leads to a record which can be saved.
    const Sample& For(const std::string& attribute)
    {
        if (random() % 6 == 0)
            return Any();
        if (attribute == "m_pScript" || attribute == "m_pPlanType")
            return samples[random() % (random() % 2 == 0 ? 4 : objects.size())];
        return samples[objects.size() + 1 + random() % (samples.size() - objects.size() - 1)];
    }

    /// Makes a record and returns what the rules say of it.
    Model NewRecord()
    {
        action = host.Object("action");
        Model model;
        // A status of its own is that of rows that are missing: then nothing is loaded.
        bool isLoading = true;
        const bool tellsMissing = random() % 16 == 0;
        for (const std::string& attribute : kAttributes)
        {
            const std::wstring key(attribute.begin(), attribute.end());
            if (random() % 24 == 0)
            {
                action->Fail(key.c_str(), E_FAIL);
                isAnyMissing = true;
                continue;
            }
            const Sample& sample = For(attribute);
            action->Answer(key.c_str(), S_OK, sample.value.Value());
            if (isLoading)
                isLoading = model.Load(attribute, sample);
        }
        if (!tellsMissing)
            action->readStatus = S_OK;
        if (tellsMissing && isAnyMissing)
            model = Model();
        isAnyMissing = false;
        return model;
    }

    std::vector<Referred> objects;
    std::vector<Sample> samples;
    std::mt19937 random{GetParam()};
    bool isAnyMissing = false;
    int written = 0;
    int refused = 0;

private:
    std::vector<ComPtr<MemoryObject>> m_made;
};

TEST_P(RandomActions, AreWrittenByTheRules)
{
    for (int record = 0; record < QP_RECORDS && !HasFailure(); ++record)
    {
        SCOPED_TRACE("record " + std::to_string(record));
        const Model model = NewRecord();
        const wchar_t* warning = model.Warning(kNoType, kNoScript);
        if (warning)
        {
            ++refused;
            ExpectBox(kWarning, warning);
            EXPECT_EQ(Show({Presses(IDOK), Presses(IDCANCEL)}), S_FALSE);
            EXPECT_EQ(Written(), "");
            EXPECT_TRUE(boxes.AllShown());
            continue;
        }
        ++written;
        EXPECT_EQ(Show({Presses(IDOK)}), S_OK);
        EXPECT_EQ(Written(), model.Written());
    }
    EXPECT_GT(written, QP_RECORDS / 10);
    EXPECT_GT(refused, QP_RECORDS / 10);
}

INSTANTIATE_TEST_SUITE_P(Seeds, RandomActions, ::testing::Range(1u, 11u));
} // namespace
