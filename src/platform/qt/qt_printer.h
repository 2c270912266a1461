// Printing: the printer object of scripts and the pages of a window.
#pragma once

#include <memory>

#include "platform/toolkit.h"

class QPrinter;
class QWidget;

namespace velm {

// All printer objects share one state: the printer in force and the pages begun on it. The printers are
// those of the system and, behind them, one that writes a PDF file, which is in force on a machine without
// a printer. Without a name of its own the file gets one in the user's documents folder, 印刷 with date and
// time.
//
// Members: DeviceName, Port (of the PDF printer its file), List and Count and Index (from 0) of the
// printers, Orientation (1 upright, 2 across), PaperSize (1 letter, 8 A3, 9 A4, 11 A5, 12 B4, 13 B5, and
// the other classic numbers), ColorMode (1 mono, 2 colour), Duplex (1 one side, 2 and 3 both), Copies,
// PrintQuality (dots an inch), Zoom (percent), PrintMargins ("left,top,right,bottom", hundredths of a
// millimetre), Page, OutputFile, ForeColor, FontName, FontSize, FontBold, FontItalic, FontUnderline,
// FontStrikethrough, CurrentX, CurrentY, ScaleWidth, ScaleHeight.
//
// Calls: Print (lines of text, wrapped, over as many pages as it takes), NewPage, EndDoc, KillDoc,
// TextWidth, TextHeight. A printed picture goes through PictureTarget (platform/picture_target.h), which
// the object also is.
//
// Lengths are 96ths of an inch, before Zoom. A printer that refuses throws Failure(482).
std::unique_ptr<MemberSurface> MakeQtPrinter();

// Prints a widget on one page of its own, made smaller where it is larger than the page.
void PrintWidget(QWidget& widget);

// For the dialogs: the printer in force, without pages begun (an unfinished document is ended first).
QPrinter& QtPrinterInForce();
// After a dialog has changed it.
void TakeQtPrinter();

}  // namespace velm
