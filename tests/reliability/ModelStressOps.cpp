#include "ModelStress.h"

// Adding items outweighs removing them so that headers fill up to their limits. AddHeader and
// AddItem come first: step() runs them instead of an operation that lacks a header or item.
const ModelStress::OpInfo ModelStress::Ops[25] = {
    { 25, "AddHeader", 0, false, [](ModelStress &s, Header *, Item *) { s.add(*s.m_bar.Headers()); } },
    { 170, "AddItem", 1, false, [](ModelStress &s, Header *header, Item *) { s.add(*header->Items()); } },
    { 12, "RemoveHeader", 1, false, [](ModelStress &s, Header *, Item *) { s.remove(*s.m_bar.Headers()); } },
    { 70, "RemoveItem", 1, false,
      [](ModelStress &s, Header *header, Item *) { s.remove(*header->Items()); } },
    { 20, "MoveHeader", 1, false, [](ModelStress &s, Header *header, Item *) { s.move(header); } },
    { 80, "MoveItem", 2, false, [](ModelStress &s, Header *, Item *item) { s.move(item); } },
    { 12, "RekeyHeader", 1, false, [](ModelStress &s, Header *header, Item *) { s.rekey(header); } },
    { 50, "RekeyItem", 2, false, [](ModelStress &s, Header *, Item *item) { s.rekey(item); } },
    { 35, "SelectHeader", 1, false, [](ModelStress &s, Header *header, Item *) { s.select(header); } },
    { 90, "SelectItem", 2, false, [](ModelStress &s, Header *, Item *item) { s.select(item); } },
    { 20, "HideHeader", 1, false, [](ModelStress &s, Header *header, Item *) { s.hide(header); } },
    { 25, "HideItem", 2, false, [](ModelStress &s, Header *, Item *item) { s.hide(item); } },
    { 50, "Caption", 0, false,
      [](ModelStress &s, Header *header, Item *item) {
          if (item && s.chance(70))
              s.changeLooks(item);
          else if (header)
              s.changeLooks(header);
      } },
    { 6, "ClearItems", 0, false, [](ModelStress &s, Header *header, Item *) { s.clearItems(header); } },
    { 1, "ClearHeaders", 0, true,
      [](ModelStress &s, Header *, Item *) {
          s.note(s.m_bar.Headers()->Count());
          s.m_bar.Headers()->Clear();
          if (s.m_bar.Headers()->Count() != 0)
              s.fail(QStringLiteral("Headers.Clear left members"));
      } },
    { 2, "ControlXml", 0, true, [](ModelStress &s, Header *, Item *) { s.controlXml(); } },
    { 4, "HeaderXml", 0, false, [](ModelStress &s, Header *, Item *) { s.headerXml(); } },
    { 45, "GoBack", 0, false, [](ModelStress &s, Header *, Item *) { s.moveInHistory(true); } },
    { 35, "GoForward", 0, false, [](ModelStress &s, Header *, Item *) { s.moveInHistory(false); } },
    { 20, "SetPosition", 0, false,
      [](ModelStress &s, Header *, Item *) {
          Navigation &navigation = *s.m_bar.Navigation();
          const int position = s.pick(navigation.headerKeys().size() + 3) - 1;
          s.note(navigation.CurrentPosition(), position);
          navigation.setCurrentPosition(position);
      } },
    { 2, "ClearHistory", 0, false, [](ModelStress &s, Header *, Item *) { s.m_bar.Navigation()->Clear(); } },
    { 30, "KeepReference", 0, false,
      [](ModelStress &s, Header *, Item *) {
          s.chance(50) ? s.keepReference<Header>() : s.keepReference<Item>();
      } },
    { 40, "UseKeptReference", 0, false,
      [](ModelStress &s, Header *, Item *) {
          s.chance(50) ? s.useKeptReference<Header>() : s.useKeptReference<Item>();
      } },
    { 25, "ReturnToEventLoop", 0, true, [](ModelStress &s, Header *, Item *) { s.returnToEventLoop(); } },
    { 30, "BadInput", 0, false, [](ModelStress &s, Header *, Item *) { s.badInput(); } },
};
