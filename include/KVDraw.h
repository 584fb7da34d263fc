#pragma once

/// Everything that the library offers.

#include "CBox.h"
#include "CBwDrawInfo.h"
#include "CDib.h"
#include "CDrawGraph.h"
#include "CDrawText.h"
#include "CImgFile.h"
#include "CKVBwDraw.h"
#include "CKVDrawWApp.h"
#include "CKVFont.h"
#include "CKVFrameBuffer.h"
#include "CKVGrayBitmap.h"
#include "CKVMonoBitmap.h"
#include "CKVPictImage.h"
#include "CKVTargaImage.h"
#include "KVUtf8.h"
#include "KVVersion.h"
