// What copies hold, for the demonstration of the enhanced copy.
#pragma once

#include "Plant.h"

#include <string>
#include <vector>

using DataObjects = std::vector<ComPtr<IQP_BaseDataObject>>;

/// An attribute of an object that an enhanced copy offers, and its value when it was read.
struct CopiedValue
{
    ComPtr<IQP_BaseDataObject> object;
    std::wstring name; ///< of the object
    std::wstring type; ///< the configured type of the object
    const wchar_t* attribute;
    std::wstring value;
};

/// The objects of a list.
DataObjects ObjectsOf(IEnumBaseDataObject* list);

/// The values of the objects and of all below them, each object before those below it.
std::vector<CopiedValue> ValuesOf(const DataObjects& objects);

/// A value as the database of the plant holds it; empty for none.
std::wstring StoredText(refhost::Plant& plant, IQP_BaseDataObject* object, const wchar_t* attribute);

/// The number of objects in the database of the plant.
long long ObjectCount(refhost::Plant& plant);
