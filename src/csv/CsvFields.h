// What a column of a table of contacts can hold, whichever program has named it.
#pragma once

enum class CsvField {
    Unknown,
    FullName,
    GivenName,
    MiddleName,
    FamilyName,
    NamePrefix,
    NameSuffix,
    Nickname,
    Phone,
    Mobile,
    Fax,
    Email,
    Website,
    Address, // whole, or a part of it:
    Street,
    PostCode,
    City,
    Region,
    Country,
    Birthday, // whole, or a part of it:
    BirthDay,
    BirthMonth,
    BirthYear,
    Note,
    Detail, // known, with no field of its own: firm, profession, pager
    Group,
    Photo,
};

enum class CsvPlace { None, Home, Work, Other };

struct CsvColumn {
    CsvField field = CsvField::Unknown;
    CsvPlace place = CsvPlace::None; // of a part of an address
    int number = 0;                  // of "Phone 2 - …": cells of one field and number belong together
    bool isLabel = false;            // each row's cell says what kind the value beside it is

    bool operator==(const CsvColumn &) const = default;
};

// A part of an address, not a whole one.
bool isAddressPart(CsvField field);
