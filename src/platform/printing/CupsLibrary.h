#pragma once

#include <cups/cups.h>

namespace hearthbook {

/// What is used of the client of the printing service. It draws the desktop's security libraries
/// in, and is seldom needed: so it is loaded when printers are first asked for.
struct CupsLibrary {
  decltype(&cupsServer) server;
  decltype(&ippPort) port;
  decltype(&cupsEncryption) encryption;
  decltype(&httpConnect2) connect;
  decltype(&httpSetTimeout) setTimeout;
  decltype(&httpClose) close;
  decltype(&cupsGetDests2) getDests;
  decltype(&cupsGetNamedDest) getNamedDest;
  decltype(&cupsFreeDests) freeDests;
  decltype(&cupsCopyDestInfo) copyDestInfo;
  decltype(&cupsFreeDestInfo) freeDestInfo;
  decltype(&cupsFindDestDefault) findDefault;
  decltype(&ippFindAttribute) findAttribute;
  decltype(&ippGetCollection) collectionOf;
  decltype(&ippGetInteger) numberOf;
  decltype(&cupsAddOption) addOption;
  decltype(&cupsFreeOptions) freeOptions;
  decltype(&cupsCreateDestJob) createJob;
  decltype(&cupsCancelDestJob) cancelJob;
  decltype(&cupsStartDestDocument) startDocument;
  decltype(&cupsWriteRequestData) writeData;
  decltype(&cupsFinishDestDocument) finishDocument;
  decltype(&cupsLastError) lastError;
  decltype(&cupsLastErrorString) lastErrorText;
};

/// Throws RunTimeError where it is not installed.
const CupsLibrary& cups();

} // namespace hearthbook
