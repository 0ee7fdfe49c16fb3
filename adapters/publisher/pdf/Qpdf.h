// SPDX-License-Identifier: GPL-3.0-or-later
// The PDF library's headers, without the pointer class that its older versions handed out.
#pragma once

#define POINTERHOLDER_TRANSITION 4

#include <qpdf/Buffer.hh>
#include <qpdf/Pipeline.hh>
#include <qpdf/QPDF.hh>
#include <qpdf/QPDFObjectHandle.hh>
#include <qpdf/QPDFPageDocumentHelper.hh>
#include <qpdf/QPDFPageObjectHelper.hh>
#include <qpdf/QPDFWriter.hh>
