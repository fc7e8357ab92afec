// A search written as its calls, one after the other.
#pragma once

#include "PlantFixture.h"

/// Makes the calls in the order they are written and expects each to succeed.
class Search
{
public:
    Search(refhost::Plant& plant, const wchar_t* table) : query(plant.NewQuery())
    {
        EXPECT_EQ(query->ResetSearch(0), S_OK);
        EXPECT_EQ(query->SetSearchTable(Text(table)), S_OK);
    }

    Search& Cat(LONG catenation)
    {
        EXPECT_EQ(query->SetSearchCatenation(catenation), S_OK);
        return *this;
    }

    template <class T>
    Search& Is(const wchar_t* column, const T& value, LONG before = 0)
    {
        EXPECT_EQ(query->SetSearchAttribute(Text(column), 1, Value(value), before), S_OK);
        return *this;
    }

    /// The rows without a value.
    Search& IsNothing(const wchar_t* column, LONG before = 0)
    {
        EXPECT_EQ(query->SetSearchAttribute(Text(column), 1, Value(), before), S_OK);
        return *this;
    }

    Search& Order(const wchar_t* column, LONG ascending = 1)
    {
        EXPECT_EQ(query->SetOrderAttribute(Text(column), ascending), S_OK);
        return *this;
    }

    HRESULT Run(ComPtr<IEnumBaseDataObject>& found) { return query->GetSearchResult(found.put()); }

    Names Found()
    {
        ComPtr<IEnumBaseDataObject> found;
        EXPECT_EQ(Run(found), S_OK);
        return NamesOf(found.get());
    }

    /// Expects the database to refuse the search.
    void Refused()
    {
        ComPtr<IEnumBaseDataObject> found;
        EXPECT_EQ(Run(found), E_FAIL);
        EXPECT_FALSE(found);
    }

    ComPtr<IQP_Query> query;
};
