#pragma once

/// AutoLISP: functions of modules, their arguments and results, symbols, and expressions.

#include "acutads.h"

/// Defines a function of the module that is being called, in the current document, under a code for acedGetFunCode. A name
/// that begins with "C:" makes a command. Defining it again changes the code. RTERROR outside of a module's message, or
/// for a null or empty name.
int acedDefun(const ACHAR* name, short code);
/// Takes a function away again. RTERROR when it is not there.
int acedUndef(const ACHAR* name, short code);
/// Has the module's function of a code called directly and not through kInvkSubrMsg; null ends that. `handler` returns RTNORM.
int acedRegFunc(int (*handler)(), int code);

/// The code of the function that is being called; RTERROR outside of a call.
int acedGetFunCode();
/// The arguments of the function that is being called, as a list that the caller releases; null when there are none.
resbuf* acedGetArgs();

// The result of the function that is being called; the last one counts, nil when there is none. RTERROR outside of a call.

int acedRetVoid();
int acedRetNil();
int acedRetT();
int acedRetInt(int value);
int acedRetReal(ads_real value);
int acedRetStr(const ACHAR* value);
int acedRetPoint(const ads_point value);
int acedRetName(const ads_name name, int type);
/// A list, or one value when it has one node; it is copied.
int acedRetList(const resbuf* list);
int acedRetVal(const resbuf* value);

/// Calls a defined function: the first node of `call` is its name, the others are the arguments. `result` is the caller's,
/// null for none. RTERROR when there is no such function or no document.
int acedInvoke(const resbuf* call, resbuf** result);

/// The value of a symbol of the current document, as a list that the caller releases; RTNIL for nil. RTERROR for a null name.
int acedGetSym(const ACHAR* name, resbuf** value);
/// Sets a symbol; RTERROR for a null name or value.
int acedPutSym(const ACHAR* name, const resbuf* value);

/// Evaluates an expression: numbers, texts, lists, quote, defined functions, and setq, list, getvar, setvar, command, princ,
/// progn and the four operations. RTERROR when it is faulty; what is wrong stands on the command line.
int acedEvaluateLisp(const ACHAR* expression, resbuf*& result);
