// Result codes of host calls, and type codes of tagged values.
#pragma once

// Result codes.
inline constexpr int RTNORM = 5100;       // done
inline constexpr int RTEMPTY = 5000;      // the user entered nothing
inline constexpr int RTERROR = -5001;     // failed, or the service is missing
inline constexpr int RTCANCELLED = -5002; // cancelled; also the end of the input in a prompt
inline constexpr int RTREJ = -5003;       // refused: wrong kind, read-only or out of range
inline constexpr int RTKEYWORD =
    -5005; // a keyword was entered instead of a point or a number; see mvsi::mvsiedGetInput

// Type codes.
inline constexpr short RTREAL = 5001;    // 64-bit real
inline constexpr short RTPOINT2D = 5002; // 2D point
inline constexpr short RTINT16 = 5003;   // 16-bit integer
inline constexpr short RTTEXT = 5005;    // text
inline constexpr short RTPOINT3D = 5009; // 3D point
inline constexpr short RTINT32 = 5010;   // 32-bit integer
