#pragma once

/// Types of documents, with the host's own codes.
enum class EDocumentType : int
{
    Sale = 1,
    Correction = 5, ///< a correction entry: never kept as an open document
    ReturnWithoutSale = 7,
    ReturnOfSale = 25, ///< refers to a closed sale by its number
};

/// Which way the goods go.
enum class EOperationKind : int
{
    GoodsLeave = 1,
    GoodsComeBack = 2,
};

enum class EDocumentState : int
{
    Open,
    Closed,
    Cancelled,
};

/// Which loyalty system or purpose a card record of a document belongs to.
enum class ECardMode : int
{
    None = 0,
    OnlineLoyalty = 23,
};

/// How a card's number came to the till.
enum class ECardNumberType : int
{
    Keyed = 0,
    Scanned = 1,
    Swiped = 2,
};
