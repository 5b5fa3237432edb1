#pragma once

#include "UObject/ContainerProperty.h"
#include "UObject/FieldIterator.h"
#include "UObject/ObjectProperty.h"
#include "UObject/Property.h"
