// Names of objects of the sample plant.
#pragma once

#include "Bstr.h"
#include "ComPtr.h"
#include "Utf8.h"
#include "Variant.h"

#include "qpobjects.h"

#include <gtest/gtest.h>

#include <string>

/// The object's attribute "name", empty if it has no value; "null" if `object` is not a data object.
inline std::string NameInPlant(IUnknown* object)
{
    static const Bstr attribute(L"name");
    ComPtr<IQP_BaseDataObject> data;
    data.queryFrom(object);
    if (!data)
        return "null";
    Variant name;
    EXPECT_GE(data->GetAttribute(attribute.get(), name.put()), 0);
    return Utf8FromWide(name.View());
}
