// The program's own sheets, which exist whether or not the template package is installed: the default
// shipping label, the common address labels, and the envelopes, post cards and note cards that the package
// lacks. Written in the package's template format, so that one reader serves both.

#include "platform/label/catalogue.h"

namespace hb::label {

QByteArray builtinSheetsXml()
{
    return QByteArrayLiteral(R"xml(<?xml version="1.0"?>
<Glabels-templates>
  <!-- Avery address and shipping labels, US Letter. Sizes, corners, margins and pitches as Debian's
       glabels-data has them for the same Avery parts (avery-us-templates.xml). Where Avery's commonly quoted
       figures differ, the package is followed: for 5160 they give a 3/16" side margin and a 2 3/4" pitch,
       the package 5/32" and 2 25/32", which puts each column within 1/32" of the other figures. -->
  <Template brand="" part="5264" size="US-Letter" _description="Shipping">
    <!-- 3 1/3" x 4", 6 per sheet, the sheet of 5164: top margin 1/2", side margin 5/32", pitch 4 3/16" x 3 1/3" -->
    <Label-rectangle id="0" width="4in" height="3.333333333in" round="0.125in">
      <Markup-margin size="0.125in"/>
      <Layout nx="2" ny="3" x0="0.15625in" y0="0.5in" dx="4.1875in" dy="3.333333333in"/>
    </Label-rectangle>
  </Template>
  <Template brand="" part="5160" size="US-Letter" _description="Address">
    <!-- 1" x 2 5/8", 30 per sheet: top margin 1/2", side margin 5/32", pitch 2 25/32" x 1" -->
    <Label-rectangle id="0" width="2.625in" height="1in" round="0.0625in">
      <Markup-margin size="0.0625in"/>
      <Layout nx="3" ny="10" x0="0.15625in" y0="0.5in" dx="2.78125in" dy="1in"/>
    </Label-rectangle>
  </Template>
  <Template brand="" part="5161" size="US-Letter" _description="Address">
    <!-- 1" x 4", 20 per sheet: top margin 1/2", side margin 5/32", pitch 4 3/16" x 1" -->
    <Label-rectangle id="0" width="4in" height="1in" round="0.0625in">
      <Markup-margin size="0.0625in"/>
      <Layout nx="2" ny="10" x0="0.15625in" y0="0.5in" dx="4.1875in" dy="1in"/>
    </Label-rectangle>
  </Template>
  <Template brand="" part="5162" size="US-Letter" _description="Address">
    <!-- 1 1/3" x 4", 14 per sheet: top margin 5/6", side margin 5/32", pitch 4 3/16" x 1 1/3" -->
    <Label-rectangle id="0" width="4in" height="1.333333333in" round="0.0625in">
      <Markup-margin size="0.0625in"/>
      <Layout nx="2" ny="7" x0="0.15625in" y0="0.833333333in" dx="4.1875in" dy="1.333333333in"/>
    </Label-rectangle>
  </Template>
  <Template brand="" part="5163" size="US-Letter" _description="Shipping">
    <!-- 2" x 4", 10 per sheet: top margin 1/2", side margin 5/32", pitch 4 3/16" x 2". The package writes
         the side margin as 0.1625", which leaves the sheet lopsided by 1/160"; 5/32" is kept. -->
    <Label-rectangle id="0" width="4in" height="2in" round="0.125in">
      <Markup-margin size="0.125in"/>
      <Layout nx="2" ny="5" x0="0.15625in" y0="0.5in" dx="4.1875in" dy="2in"/>
    </Label-rectangle>
  </Template>
  <Template brand="" part="5164" size="US-Letter" _description="Shipping">
    <!-- 3 1/3" x 4", 6 per sheet, as 5264 -->
    <Label-rectangle id="0" width="4in" height="3.333333333in" round="0.125in">
      <Markup-margin size="0.125in"/>
      <Layout nx="2" ny="3" x0="0.15625in" y0="0.5in" dx="4.1875in" dy="3.333333333in"/>
    </Label-rectangle>
  </Template>

  <!-- Avery A4 address labels, from Avery UK's published template data ("L7160", "L7163"), whose margins and
       pitches add up to the A4 sheet. The package's 7160 makes the label 63.99 mm wide and its 7163 puts
       103 mm between columns, neither of which fills A4 evenly; its origins lie within 1.5 mm of these. -->
  <Template brand="" part="L7160" size="A4" _description="Address">
    <!-- 63.5 x 38.1 mm, 21 per sheet: top margin 15.15 mm, side margin 7.21 mm, pitch 66.04 x 38.1 mm -->
    <Label-rectangle id="0" width="63.5mm" height="38.1mm" round="2.5mm">
      <Markup-margin size="1.5mm"/>
      <Layout nx="3" ny="7" x0="7.21mm" y0="15.15mm" dx="66.04mm" dy="38.1mm"/>
    </Label-rectangle>
  </Template>
  <Template brand="" part="L7163" size="A4" _description="Address">
    <!-- 99.1 x 38.1 mm, 14 per sheet: top margin 15.15 mm, side margin 4.65 mm, pitch 101.6 x 38.1 mm -->
    <Label-rectangle id="0" width="99.1mm" height="38.1mm" round="2.5mm">
      <Markup-margin size="1.5mm"/>
      <Layout nx="2" ny="7" x0="4.65mm" y0="15.15mm" dx="101.6mm" dy="38.1mm"/>
    </Label-rectangle>
  </Template>

  <!-- Envelopes, one per page, the paper the size of the envelope lying flat (long side across).
       US sizes from the USPS/ANSI commercial and announcement envelope sizes (#10 4 1/8 x 9 1/2,
       #9 3 7/8 x 8 7/8, #6 3/4 3 5/8 x 6 1/2, Monarch 3 7/8 x 7 1/2, A2 4 3/8 x 5 3/4, A6 4 3/4 x 6 1/2,
       A7 5 1/4 x 7 1/4 inches); C5, C6 and DL from ISO 269. The paper sizes of glabels-data agree for #10,
       Monarch, C5, C6 and DL. -->
  <Template brand="" part="#10" size="Other" width="9.5in" height="4.125in" _description="Envelope 4 1/8 x 9 1/2">
    <Label-rectangle id="0" width="9.5in" height="4.125in"><Layout nx="1" ny="1" x0="0" y0="0"/></Label-rectangle>
  </Template>
  <Template brand="" part="#9" size="Other" width="8.875in" height="3.875in" _description="Envelope 3 7/8 x 8 7/8">
    <Label-rectangle id="0" width="8.875in" height="3.875in"><Layout nx="1" ny="1" x0="0" y0="0"/></Label-rectangle>
  </Template>
  <Template brand="" part="#6 3/4" size="Other" width="6.5in" height="3.625in" _description="Envelope 3 5/8 x 6 1/2">
    <Label-rectangle id="0" width="6.5in" height="3.625in"><Layout nx="1" ny="1" x0="0" y0="0"/></Label-rectangle>
  </Template>
  <Template brand="" part="Monarch" size="Other" width="7.5in" height="3.875in" _description="Envelope 3 7/8 x 7 1/2">
    <Label-rectangle id="0" width="7.5in" height="3.875in"><Layout nx="1" ny="1" x0="0" y0="0"/></Label-rectangle>
  </Template>
  <Template brand="" part="A2" size="Other" width="5.75in" height="4.375in" _description="Envelope 4 3/8 x 5 3/4">
    <Label-rectangle id="0" width="5.75in" height="4.375in"><Layout nx="1" ny="1" x0="0" y0="0"/></Label-rectangle>
  </Template>
  <Template brand="" part="A6" size="Other" width="6.5in" height="4.75in" _description="Envelope 4 3/4 x 6 1/2">
    <Label-rectangle id="0" width="6.5in" height="4.75in"><Layout nx="1" ny="1" x0="0" y0="0"/></Label-rectangle>
  </Template>
  <Template brand="" part="A7" size="Other" width="7.25in" height="5.25in" _description="Envelope 5 1/4 x 7 1/4">
    <Label-rectangle id="0" width="7.25in" height="5.25in"><Layout nx="1" ny="1" x0="0" y0="0"/></Label-rectangle>
  </Template>
  <Template brand="" part="C5" size="Other" width="229mm" height="162mm" _description="Envelope 162 x 229 mm">
    <Label-rectangle id="0" width="229mm" height="162mm"><Layout nx="1" ny="1" x0="0" y0="0"/></Label-rectangle>
  </Template>
  <Template brand="" part="C6" size="Other" width="162mm" height="114mm" _description="Envelope 114 x 162 mm">
    <Label-rectangle id="0" width="162mm" height="114mm"><Layout nx="1" ny="1" x0="0" y0="0"/></Label-rectangle>
  </Template>
  <Template brand="" part="DL" size="Other" width="220mm" height="110mm" _description="Envelope 110 x 220 mm">
    <Label-rectangle id="0" width="220mm" height="110mm"><Layout nx="1" ny="1" x0="0" y0="0"/></Label-rectangle>
  </Template>

  <!-- Post cards. The single 4 x 6 card is the USPS maximum post card size lying flat. Avery 5389 (two
       4" x 6" cards, margins 1 1/4", 1/2" between them) as glabels-data has it; 8577 (four 4 1/4" x 5 1/2"
       cards filling a Letter sheet) from Avery's product size, which the package does not list. -->
  <Template brand="" part="4 x 6" size="Other" width="6in" height="4in" _description="Post Card">
    <Label-rectangle id="0" width="6in" height="4in"><Layout nx="1" ny="1" x0="0" y0="0"/></Label-rectangle>
  </Template>
  <Template brand="" part="5389" size="US-Letter" _description="Post Card 4 x 6, 2 per sheet">
    <Label-rectangle id="0" width="6in" height="4in">
      <Markup-margin size="0.125in"/>
      <Layout nx="1" ny="2" x0="1.25in" y0="1.25in" dx="6in" dy="4.5in"/>
    </Label-rectangle>
  </Template>
  <Template brand="" part="8577" size="US-Letter" _description="Post Card 4 1/4 x 5 1/2, 4 per sheet">
    <Label-rectangle id="0" width="4.25in" height="5.5in"><Layout nx="2" ny="2" x0="0" y0="0" dx="4.25in" dy="5.5in"/></Label-rectangle>
  </Template>

  <!-- Note cards 4 1/4" x 5 1/2" (Avery 8315 and 3379 data): the folded card prints on its front half,
       a 5 1/2" x 8 1/2" flat blank folded across; the flat card is one sheet of its own size. -->
  <Template brand="" part="4 1/4 x 5 1/2" size="Other" width="8.5in" height="5.5in" _description="Note Card, folded">
    <Label-rectangle id="0" width="4.25in" height="5.5in"><Layout nx="1" ny="1" x0="4.25in" y0="0"/></Label-rectangle>
  </Template>
  <Template brand="" part="4 1/4 x 5 1/2" size="Other" width="4.25in" height="5.5in" _description="Note Card, flat">
    <Label-rectangle id="0" width="4.25in" height="5.5in"><Layout nx="1" ny="1" x0="0" y0="0"/></Label-rectangle>
  </Template>
</Glabels-templates>
)xml");
}

} // namespace hb::label
