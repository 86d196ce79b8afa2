#include "common/TInstanceWriter.h"
#include "common/Text.h"
#include "identity/Identity.h"

namespace {

bool TellsAnything(const TBaseBoard& board) {
  return board.manufacturer || board.product || board.version || board.serial || board.assetTag;
}

}  // namespace

TBaseBoardSource ReadBaseBoard(const TSource& source) {
  TBaseBoardSource read;
  read.vendor = ReadDmi(source, "board_vendor");
  read.name = ReadDmi(source, "board_name");
  read.version = ReadDmi(source, "board_version");
  read.serial = ReadDmi(source, "board_serial");
  read.assetTag = ReadDmi(source, "board_asset_tag");
  return read;
}

TBaseBoard ParseBaseBoard(const TBaseBoardSource& source) {
  TBaseBoard board;
  board.manufacturer = Then(source.vendor, FirmwareText);
  board.product = Then(source.name, FirmwareText);
  board.version = Then(source.version, FirmwareText);
  board.serial = Then(source.serial, FirmwareText);
  board.assetTag = Then(source.assetTag, FirmwareText);
  return board;
}

void WriteBaseBoard(const TBaseBoard& board, TContainer& target, TCIMClass& cimClass) {
  TInstanceWriter(target, cimClass)
      .Set("InstanceID", "board:0")
      .Set("ElementName", "Base board")
      .Set("Manufacturer", board.manufacturer)
      .Set("Product", board.product)
      .Set("Version", board.version)
      .Set("SerialNumber", board.serial)
      .Set("AssetTag", board.assetTag)
      .Add();
}

void CollectBaseBoard(const TSource& source, TContainer& target, TCIMClass& cimClass) {
  const TBaseBoard board = ParseBaseBoard(ReadBaseBoard(source));
  if (TellsAnything(board)) WriteBaseBoard(board, target, cimClass);
}
