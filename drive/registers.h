#pragma once

#include <QtGlobal>

/// The registers that the simulated drive itself reads or keeps up to date. Any of them may be missing from a
/// drive description; the drive then goes by the fallback named at the place of use.
namespace krt550::reg {

// Actual values, read-only.
inline constexpr quint16 kSpeedFiltered = 101;        ///< [rpm]
inline constexpr quint16 kSpeedEmf = 102;             ///< from the armature voltage [rpm]
inline constexpr quint16 kSpeedEncoder = 103;         ///< [rpm]
inline constexpr quint16 kSpeed = 104;                ///< from the chosen feedback [rpm]
inline constexpr quint16 kSpeedTacho = 105;           ///< [rpm]
inline constexpr quint16 kCurrentRelative = 106;      ///< [%]
inline constexpr quint16 kTorqueFiltered = 107;       ///< [%]
inline constexpr quint16 kTorqueRelative = 108;       ///< [%]
inline constexpr quint16 kTorque = 109;               ///< [Nm]
inline constexpr quint16 kSpeedRelative = 110;        ///< [%]
inline constexpr quint16 kMainsRelative = 111;        ///< [%]
inline constexpr quint16 kMainsVoltage = 112;         ///< [V]
inline constexpr quint16 kVoltageRelative = 113;      ///< [%]
inline constexpr quint16 kArmatureVoltage = 114;      ///< [V]
inline constexpr quint16 kConverterRelative = 115;    ///< converter current [%]
inline constexpr quint16 kArmatureCurrent = 116;      ///< [A]
inline constexpr quint16 kEmfRelative = 117;          ///< [%]
inline constexpr quint16 kEmf = 118;                  ///< [V]
inline constexpr quint16 kPower = 119;                ///< [kW]
inline constexpr quint16 kPowerRelative = 120;        ///< [%]
inline constexpr quint16 kTemperatureRise = 122;      ///< of the thermal model [%]
inline constexpr quint16 kFiringAngle = 125;          ///< [deg]
inline constexpr quint16 kCurrentReference = 126;     ///< [%]
inline constexpr quint16 kSpeedError = 127;           ///< [rpm]
inline constexpr quint16 kFieldRelative = 129;        ///< field current [%]
inline constexpr quint16 kFieldCurrent = 130;         ///< motor 1 [A]
inline constexpr quint16 kFieldVoltage = 131;         ///< [V]
inline constexpr quint16 kFlux = 132;                 ///< [%]
inline constexpr quint16 kSpeedReference = 217;       ///< after the ramp [rpm]
inline constexpr quint16 kSpeedReferenceSum = 218;    ///< at the speed controller [rpm]
inline constexpr quint16 kTorqueUsed = 209;           ///< torque reference [%]
inline constexpr quint16 kSpeedScaling = 229;         ///< [rpm]
inline constexpr quint16 kReferenceOfCurrent = 301;   ///< [%]
inline constexpr quint16 kReferenceLimited = 302;     ///< [%]
inline constexpr quint16 kFluxReference = 309;        ///< [%]
inline constexpr quint16 kFieldReference = 330;       ///< field current reference [%]
inline constexpr quint16 kConverterCurrent = 403;     ///< nominal [A]
inline constexpr quint16 kBridges = 405;              ///< number of bridges
inline constexpr quint16 kExciterFound = 406;         ///< type number
inline constexpr quint16 kConverterOvercurrent = 407; ///< [A]
inline constexpr quint16 kExciterCurrent = 411;       ///< nominal [A]
inline constexpr quint16 kLinkNodesLow = 418;         ///< nodes that answer on the link, 1 to 16 from bit 0
inline constexpr quint16 kLinkNodesHigh = 419;        ///< 17 to 32
inline constexpr quint16 kProgress = 424;             ///< of a service run [%]
inline constexpr quint16 kTachoRange = 425;           ///< input range in use: 0 none, 1 to 3 the higher the voltage

// Times, counters and words.
inline constexpr quint16 kSystemTime = 601;  ///< [min]
inline constexpr quint16 kDaysPowered = 602; ///< [d]
inline constexpr quint16 kStartCount = 605;
inline constexpr quint16 kTripCount = 606;
inline constexpr quint16 kControlWord = 701; ///< from the overriding control
inline constexpr quint16 kUsedControlWord = 704;
inline constexpr quint16 kStatusWord = 801;
inline constexpr quint16 kAuxiliaryStatusWord = 802;
inline constexpr quint16 kDigitalInputs = 805;
inline constexpr quint16 kDigitalOutputs = 806;
inline constexpr quint16 kDriveState = 807;
inline constexpr quint16 kControlPlace = 808;
inline constexpr quint16 kBridgeUsed = 809;
inline constexpr quint16 kLastFaultCode = 910;
inline constexpr quint16 kDiagnosis = 911;

// Settings.
inline constexpr quint16 kInvertFirstInput = 1025; ///< and of the others behind it
inline constexpr quint16 kSpeedMinimum = 2001;     ///< [rpm]
inline constexpr quint16 kSpeedMaximum = 2002;     ///< [rpm]
inline constexpr quint16 kTorqueMaximum = 2005;    ///< [%]
inline constexpr quint16 kTorqueMinimum = 2006;    ///< [%]
inline constexpr quint16 kCurrentLimit1 = 2012;    ///< bridge 1 [%]
inline constexpr quint16 kCurrentLimit2 = 2013;    ///< bridge 2 [%]
inline constexpr quint16 kSmallestAngle = 2018;    ///< [deg]
inline constexpr quint16 kLargestAngle = 2019;     ///< [deg]
inline constexpr quint16 kRampUp = 2201;           ///< standstill to base speed [s]
inline constexpr quint16 kRampDown = 2202;         ///< base speed to standstill [s]
inline constexpr quint16 kQuickStopRamp = 2204;    ///< base speed to standstill [s]
inline constexpr quint16 kRemoteReference = 2301;  ///< from the overriding control [rpm]
inline constexpr quint16 kErrorFilter = 2306;      ///< of the speed error [ms]
inline constexpr quint16 kSpeedThreshold1 = 2309;  ///< [rpm]
inline constexpr quint16 kSpeedThreshold2 = 2310;  ///< [rpm]
inline constexpr quint16 kReferenceFilter = 2311;  ///< of the speed reference [ms]
inline constexpr quint16 kSpeedGain = 2403;        ///< see DriveSettings for the units of gains
inline constexpr quint16 kSpeedTime = 2409;        ///< [ms]
inline constexpr quint16 kSpeedControllerType = 2412;
inline constexpr quint16 kOvervoltageLevel = 3008;  ///< of the armature [%]
inline constexpr quint16 kOvercurrentLevel = 3009;  ///< of the armature [%]
inline constexpr quint16 kLeastField = 3012;        ///< field loss level [%]
inline constexpr quint16 kFeedbackLevel = 3014;     ///< a speed below this with an EMF above the next is lost [rpm]
inline constexpr quint16 kFeedbackEmf = 3015;       ///< [V]
inline constexpr quint16 kOverspeed = 3016;         ///< [rpm]
inline constexpr quint16 kFeedbackReaction = 3017;  ///< 0 none, 1 trip, 2 and 3 change to EMF
inline constexpr quint16 kFieldLossDelay = 3018;    ///< [ms]
inline constexpr quint16 kMainsTripLevel = 3023;    ///< [%]
inline constexpr quint16 kLocalLossReaction = 3027; ///< 0 ramp stop, 1 torque limit stop, 2 coast stop
inline constexpr quint16 kLocalSupervision = 3029;  ///< tool must be heard within [s]
inline constexpr quint16 kContactorTime = 3034;     ///< main contactor must have followed its command [ms]
inline constexpr quint16 kThermalTime = 3101;       ///< [s]
inline constexpr quint16 kThermalTripLevel = 3103;  ///< [%]
inline constexpr quint16 kThermalModel = 3108;      ///< 0 off
inline constexpr quint16 kCurrentSlope = 4304;      ///< of the current reference [%/ms]
inline constexpr quint16 kCurrentControllerType = 4305;
inline constexpr quint16 kCurrentGain = 4306;
inline constexpr quint16 kCurrentTime = 4307;        ///< [ms]
inline constexpr quint16 kDiscontinuousLine = 4308;  ///< [%]
inline constexpr quint16 kArmatureInductance = 4309; ///< [mH]
inline constexpr quint16 kArmatureResistance = 4310; ///< [mOhm]
inline constexpr quint16 kReversalDelay = 4315;      ///< [ms]
inline constexpr quint16 kBridgesUsed = 4316;        ///< 0 both, 1 bridge 1, 2 bridge 2
inline constexpr quint16 kZeroCurrent = 4317;        ///< [%]
inline constexpr quint16 kFieldMode = 4401;          ///< 1 and 3: field weakening
inline constexpr quint16 kFieldGain = 4402;
inline constexpr quint16 kFieldTime = 4403;  ///< [ms]
inline constexpr quint16 kEmfMaximum = 4407; ///< [%]
inline constexpr quint16 kLeastFlux = 4408;  ///< [%]
inline constexpr quint16 kEmfGain = 4409;
inline constexpr quint16 kEmfTime = 4410;           ///< [ms]
inline constexpr quint16 kField40 = 4412;           ///< field current at 40 % flux [%]
inline constexpr quint16 kField70 = 4413;           ///< at 70 % [%]
inline constexpr quint16 kField90 = 4414;           ///< at 90 % [%]
inline constexpr quint16 kEmfHigh = 4415;           ///< [%]
inline constexpr quint16 kEmfLow = 4416;            ///< [%]
inline constexpr quint16 kFieldMaskTime = 4508;     ///< field may build up for [ms]
inline constexpr quint16 kSpeedSource = 5003;       ///< 0 EMF, 1 encoder, 2 tacho
inline constexpr quint16 kEncoderPulses = 5004;     ///< a turn
inline constexpr quint16 kFeedbackFilter = 5006;    ///< [ms]
inline constexpr quint16 kDisplayFilter = 5007;     ///< [ms]
inline constexpr quint16 kEmfFilter = 5010;         ///< of the speed by EMF [ms]
inline constexpr quint16 kHandTacho = 5012;         ///< speed that a hand-held tacho shows [rpm]
inline constexpr quint16 kTachoVoltage = 5013;      ///< [V] at 1000 rpm
inline constexpr quint16 kTachoAdjust = 8827;       ///< [%]
inline constexpr quint16 kConverterNode = 9401;     ///< 0 none
inline constexpr quint16 kExciterNode = 9408;       ///< 0 none
inline constexpr quint16 kRatedVoltage = 9902;      ///< [V]
inline constexpr quint16 kRatedCurrent = 9903;      ///< [A]
inline constexpr quint16 kBaseSpeed = 9904;         ///< [rpm]
inline constexpr quint16 kRatedFieldVoltage = 9905; ///< [V]
inline constexpr quint16 kServiceMode = 9906;
inline constexpr quint16 kInertia = 9909;           ///< [kgm2]
inline constexpr quint16 kRatedMains = 9910;        ///< [V]
inline constexpr quint16 kRatedFieldCurrent = 9911; ///< [A]
inline constexpr quint16 kExciterUsed = 9912;       ///< type number
inline constexpr quint16 kFieldSupply = 9913;       ///< [V]

} // namespace krt550::reg
