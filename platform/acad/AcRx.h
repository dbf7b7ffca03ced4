// The host's runtime-extension message codes and return codes.
#pragma once

namespace AcRx {

enum AppMsgCode : int {
  kNullMsg = 0,
  kInitAppMsg = 1,
  kUnloadAppMsg = 2,
  kLoadDwgMsg = 3,
  kUnloadDwgMsg = 4,
  kInvkSubrMsg = 5,
  kCfgMsg = 6,
  kEndMsg = 7,
  kQuitMsg = 8,
  kSaveMsg = 9,
  kDependencyMsg = 10,
  kNoDependencyMsg = 11,
  kOleUnloadAppMsg = 12,
  kPreQuitMsg = 13,
  kInitDialogMsg = 14,
  kEndDialogMsg = 15,
  kSuspendMsg = 16,
};

enum AppRetCode { kRetOK = 0, kRetError = 3 };

}  // namespace AcRx

// The API version the host checks when it loads a module.
constexpr int kTolvHostApiVersion = 18;
