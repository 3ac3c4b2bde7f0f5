#pragma once

// Results of the host's C functions.
#define RTNORM 5100
#define RTERROR (-5001)
#define RTCAN (-5002)
#define RTREJ (-5003)

// What a function registered by acedRegFunc answers.
#define RSRSLT 1
#define RSERR (-1)

// Types of values that pass between LISP and a module.
#define RTNONE 5000
#define RTREAL 5001
#define RTPOINT 5002
#define RTSHORT 5003
#define RTSTR 5005
#define RTENAME 5006
#define RTORINT 5008
#define RT3DPOINT 5009
#define RTLONG 5010
#define RTVOID 5014
#define RTLB 5016
#define RTLE 5017
#define RTDOTE 5018
#define RTNIL 5019
#define RTT 5021
