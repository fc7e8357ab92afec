// The choosers on the sample plant, created by COM and used as a host and its user do.
#pragma once

#include "BoxAnswers.h"
#include "DialogDriver.h"
#include "LogBook.h"
#include "ModuleUnderTest.h"
#include "NameInPlant.h"
#include "Plant.h"
#include "SampleFolder.h"
#include "XQPComBSTR.h"
#include "XQPComVariant.h"

#include "qptools.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <memory>
#include <string>
#include <vector>

using Lines = std::vector<std::string>;
using Cells = std::vector<Texts>; ///< row by row

/// All cells of the one list that is shown.
inline Cells CellsOf(const DialogView& view)
{
    const HWND list = view.List();
    Cells cells;
    for (int row = 0; row < view.Rows(list); ++row)
        cells.push_back(view.Row(list, row));
    return cells;
}

/// The components and their host, without a driver for the dialogs.
class ChoosersOnPlant : public ::testing::Test
{
protected:
    ChoosersOnPlant() : m_objects(refhost::Plant::LiveObjects()), plant(refhost::Plant::OpenMemory())
    {
        plant->Load(refhost::SampleFolder());
        query = plant->NewQuery();
        EXPECT_EQ(module.Create(CLSID_QPProjectChoice, choice), S_OK);
        EXPECT_EQ(module.Create(CLSID_QPSelectOrvoItem, item), S_OK);
        XQPComVariant given;
        given.Value().vt = VT_UNKNOWN;
        given.Value().punkVal = query.get();
        query->AddRef();
        EXPECT_EQ(item->Initialize(&given.Value()), S_OK);
    }
    ~ChoosersOnPlant() override
    {
        EXPECT_EQ(plant->Calls().Misuses(), Lines{}) << "variants that were not empty before the call";
        choice.reset();
        item.reset();
        query.reset();
        plant.reset();
        EXPECT_EQ(refhost::Plant::LiveObjects(), m_objects) << "objects of the host are left";
    }

    ComPtr<IQP_BaseDataObject> Find(const wchar_t* table, const wchar_t* name) const
    {
        ComPtr<IQP_BaseDataObject> object = plant->Find(table, name);
        EXPECT_TRUE(object) << "the sample has no such object";
        return object;
    }
    ComPtr<IQP_BaseDataObject> Root() const { return Find(L"root", L"root"); }

    /// Makes `call`, whose host calls become the record.
    template <class Call>
    HRESULT Recorded(Call&& call)
    {
        plant->Calls().Clear();
        plant->Calls().Record(true);
        const HRESULT status = call();
        plant->Calls().Record(false);
        record = plant->Calls().Calls();
        return status;
    }

    long CountOf(const std::string& part) const
    {
        return static_cast<long>(std::count_if(record.begin(), record.end(), [&](const std::string& line) {
            return line.find(part) != std::string::npos;
        }));
    }

private:
    const long m_objects;

protected:
    LogBook logBook;
    ModuleUnderTest module;
    std::unique_ptr<refhost::Plant> plant;
    ComPtr<IQP_Query> query;
    ComPtr<IQPProjectChoice> choice;
    ComPtr<IQPSelectOrvoItem> item;
    Lines record;
};

class ChooserPlant : public ChoosersOnPlant
{
protected:
    BoxAnswers boxes;
    DialogDriver dialogs;
};
