#pragma once

#include "Standalone/ContainerProperty.h"
#include "Standalone/FieldIterator.h"
#include "Standalone/ObjectProperty.h"
#include "Standalone/Property.h"
