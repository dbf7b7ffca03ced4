// The XML wrapper of the utility module in one include.
#pragma once

#include "platform/utility/AutoPtr.h"
#include "platform/utility/KyUtXMLDOMFile.h"
#include "platform/utility/KyUtXMLDOMNode.h"
#include "platform/utility/KyUtXMLDOMNodes.h"
