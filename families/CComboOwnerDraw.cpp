#include "families/CComboOwnerDraw.h"

CComboOwnerDraw::CComboOwnerDraw() = default;

CComboOwnerDraw::~CComboOwnerDraw() = default;
