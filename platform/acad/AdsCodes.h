// The result codes and result-buffer type codes of the host's C interface.
#pragma once

// Result codes.
constexpr int RTNORM = 5100;
constexpr int RTNONE = 5000;
constexpr int RTERROR = -5001;
constexpr int RTCAN = -5002;
constexpr int RTREJ = -5003;
constexpr int RTFAIL = -5004;
constexpr int RTKWORD = -5005;
constexpr int RTINPUT = -5008;

// Result-buffer types; group codes of drawing data are used as types as well.
constexpr int RTREAL = 5001;
constexpr int RTPOINT = 5002;
constexpr int RTSHORT = 5003;
constexpr int RTANG = 5004;
constexpr int RTSTR = 5005;
constexpr int RTENAME = 5006;
constexpr int RTPICKS = 5007;
constexpr int RTORINT = 5008;
constexpr int RT3DPOINT = 5009;
constexpr int RTLONG = 5010;
constexpr int RTVOID = 5014;
constexpr int RTLB = 5016;
constexpr int RTLE = 5017;
constexpr int RTDOTE = 5018;
constexpr int RTNIL = 5019;
constexpr int RTDXF0 = 5020;
constexpr int RTT = 5021;
constexpr int RTRESBUF = 5023;
