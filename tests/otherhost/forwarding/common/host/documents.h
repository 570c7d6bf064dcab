#pragma once

// In place of the tree's own: where this host's documents are, and by what name the plug-in calls
// them.
#include "shop/cheque.h"
#include "shop/makers.h"

using shop::AbstractDocument;
using shop::BonusImpact;
using shop::Card;
using shop::CardGroup;
using shop::Client;
using shop::ClientOptions;
using shop::Coupon;
using shop::DiscountImpact;
using shop::DiscountLogic;
using shop::DocumentBonusRecord;
using shop::DocumentCardRecord;
using shop::DocumentFactory;
using shop::DocumentImpactDetail;
using shop::DocumentLogic;
using shop::ECardMode;
using shop::ECardNumberType;
using shop::EDiscountProcessing;
using shop::EDocumentType;
using shop::EOperationKind;
using shop::GoodsItem;
using shop::MockFactory;
using shop::ModifiersContainer;
using shop::Quantity;
using shop::Singleton;
using shop::Tmc;
using shop::TmcIndexPrice;
using shop::TmcUnit;
