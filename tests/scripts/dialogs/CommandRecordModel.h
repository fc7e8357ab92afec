// What the property dialog of a script command makes of a record that is opened and written back untouched: a
// model for random records.
#pragma once

#include <optional>
#include <string>

/// A value as the host stores it.
struct StoredValue
{
    enum class Kind
    {
        Nothing,
        Text,
        Number,
        Flag,
        Object,
        NullObject
    };

    Kind kind = Kind::Nothing;
    std::wstring text{};
    int number = 0; ///< of a flag 0 or 1

    /// Its conversions; nothing where there is none.
    std::optional<std::wstring> AsText() const;
    std::optional<int> AsNumber() const;
    std::optional<int> AsFlag() const;

    bool IsSet() const { return kind == Kind::Text || kind == Kind::Object || number != 0; }
};

/// A script or plan type.
struct StoredObject
{
    enum class Name
    {
        Readable,
        NoText,
        Unreadable
    };

    std::string recorded; ///< as the record of calls names it
    std::wstring name{};  ///< what "m_name" reads
    Name read = Name::Readable;
    std::wstring typeName{}; ///< what "configtypename" reads; of a plan type
};

/// A stored record. The objects are there if the value is a reference to one.
struct StoredCommand
{
    bool isReadable = true;
    StoredValue name;
    StoredValue prompt;
    StoredValue script;
    StoredValue macro;
    StoredValue mark;
    StoredValue type;
    StoredValue planType;
    StoredValue visible;
    StoredValue userInterface;
    StoredValue execution;
    StoredValue elementId;
    StoredValue elementKind;
    StoredObject scriptObject;
    StoredObject planTypeObject;
};

/// How a dialog ends in which nothing is touched but OK.
struct WrittenBack
{
    const wchar_t* warning = nullptr; ///< OK shows this and writes nothing
    std::string write;                ///< else the call, as the host records it
};

/// The host has the types and elements of CommandFixture.
WrittenBack WriteBack(const StoredCommand& stored);
