#pragma once

#include "host/documents/abstractdocument.h"
#include "host/documents/discountlogic.h"
#include "host/documents/documentfactory.h"
#include "host/documents/documentlogic.h"
#include "host/documents/money.h"
