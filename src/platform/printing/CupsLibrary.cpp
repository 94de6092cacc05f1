#include "CupsLibrary.h"

#include "SharedLibrary.h"

namespace hearthbook {

namespace {

CupsLibrary loadCupsLibrary() {
  const SharedLibrary library("libcups.so.2", "The printing service's client");
  CupsLibrary functions{};
  library.find(functions.server, "cupsServer");
  library.find(functions.port, "ippPort");
  library.find(functions.encryption, "cupsEncryption");
  library.find(functions.connect, "httpConnect2");
  library.find(functions.setTimeout, "httpSetTimeout");
  library.find(functions.close, "httpClose");
  library.find(functions.getDests, "cupsGetDests2");
  library.find(functions.getNamedDest, "cupsGetNamedDest");
  library.find(functions.freeDests, "cupsFreeDests");
  library.find(functions.copyDestInfo, "cupsCopyDestInfo");
  library.find(functions.freeDestInfo, "cupsFreeDestInfo");
  library.find(functions.findDefault, "cupsFindDestDefault");
  library.find(functions.findAttribute, "ippFindAttribute");
  library.find(functions.collectionOf, "ippGetCollection");
  library.find(functions.numberOf, "ippGetInteger");
  library.find(functions.addOption, "cupsAddOption");
  library.find(functions.freeOptions, "cupsFreeOptions");
  library.find(functions.createJob, "cupsCreateDestJob");
  library.find(functions.cancelJob, "cupsCancelDestJob");
  library.find(functions.startDocument, "cupsStartDestDocument");
  library.find(functions.writeData, "cupsWriteRequestData");
  library.find(functions.finishDocument, "cupsFinishDestDocument");
  library.find(functions.lastError, "cupsLastError");
  library.find(functions.lastErrorText, "cupsLastErrorString");
  return functions;
}

} // namespace

const CupsLibrary& cups() {
  static const CupsLibrary loaded = loadCupsLibrary();
  return loaded;
}

} // namespace hearthbook
