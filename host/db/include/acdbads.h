#pragma once

/// Entities, tables and dictionaries as lists of groups (resbuf), in the working database.
///
/// Lists have the groups of drawing files with these differences: -1 is the object's name; the coordinates of a point
/// stand in one node; angles are in radians; references are names; 210 is there also when it is the Z axis; extended
/// data stand behind a node of code -3. Lists that are returned are the caller's, who releases them with acutRelRb;
/// lists that are passed stay the caller's. Functions that return int give RTNORM, or RTERROR with nothing changed,
/// unless they say more.

#include "acadstrc.h"
#include "acdbunits.h"
#include "adsdef.h"
#include "dbid.h"

/// The name of an object for lists; eNullObjectId.
Acad::ErrorStatus acdbGetAdsName(ads_name& name, AcDbObjectId id);
/// The object of a name; eInvalidAdsName.
Acad::ErrorStatus acdbGetObjectId(AcDbObjectId& id, const ads_name name);
/// The object of a handle in hexadecimal digits, erased ones too.
int acdbHandEnt(const ACHAR* handle, ads_name result);

/// The groups of an object without extended data; null for an erased object and one that is open for write.
resbuf* acdbEntGet(const ads_name name);
/// The same with the extended data of the applications in a list of texts, in which "*" means all; null: none.
resbuf* acdbEntGetX(const ads_name name, const resbuf* applications);

/// Changes the object whose name stands under -1 in a list. Groups of a section that the list does not have stay as
/// they are; the name, the kind, the handle and the owner cannot be changed. Extended data are replaced by
/// application. RTREJ for a list that cannot be understood.
int acdbEntMod(const resbuf* list);
/// Makes an entity from a list that begins with its kind (group 0), in the current space, or in paper space with a
/// group 67 of 1. A layer that the drawing does not have is made. Behind a POLYLINE, and an INSERT with a group 66
/// of 1, follow its vertices or attributes up to the SEQEND, behind a BLOCK what it shows up to the ENDBLK; the drawing
/// gets all of it with that end, and a block in place of one of the same name. RTKWORD for the ENDBLK; RTREJ for a
/// list that cannot be understood or does not belong there. After a failure, and after null (RTREJ), nothing is left
/// of an entity or a block that was begun.
int acdbEntMake(const resbuf* list);
/// The same, also of objects that are no entities, which nothing owns yet; `result` is the new object's name. It is
/// zeros for what is not in the drawing yet; SEQEND and ENDBLK give the name of what they complete.
int acdbEntMakeX(const resbuf* list, ads_name result);
/// Erases an entity, or brings an erased one back.
int acdbEntDel(const ads_name name);
/// Shows the entity anew; without a screen there is nothing to do.
int acdbEntUpd(const ads_name name);

/// The entity behind another one in its space; vertices and attributes follow their entity. The first of the current
/// space for null or a name of zeros. Erased entities are passed over.
int acdbEntNext(const ads_name name, ads_name result);
/// The last entity of the current space.
int acdbEntLast(ads_name result);

/// Registers an application for extended data; RTNORM also when it was registered before.
int acdbRegApp(const ACHAR* application);
/// The groups of a record. `table` is "LAYER", "LTYPE", "VIEW", "STYLE", "BLOCK", "UCS", "APPID", "DIMSTYLE" or
/// "VPORT". With `setNext` the next acdbTblNext goes on behind it. A block has its first entity under -2.
resbuf* acdbTblSearch(const ACHAR* table, const ACHAR* name, int setNext);
/// The next record of a table, from the first with `rewind`; null at the end.
resbuf* acdbTblNext(const ACHAR* table, int rewind);
int acdbTblObjName(const ACHAR* table, const ACHAR* name, ads_name result);

/// The named objects dictionary.
int acdbNamedObjDict(ads_name result);
/// The groups of the object under a name of a dictionary, as acdbEntGet gives them.
resbuf* acdbDictSearch(const ads_name dictionary, const ACHAR* name, int setNext);
/// The object of the next entry, from the first with `rewind`.
resbuf* acdbDictNext(const ads_name dictionary, int rewind);
int acdbDictAdd(const ads_name dictionary, const ACHAR* name, const ads_name object);
int acdbDictRemove(const ads_name dictionary, const ACHAR* name);
int acdbDictRename(const ads_name dictionary, const ACHAR* oldName, const ACHAR* newName);

/// The bytes of extended data that an object has room for, of 16383.
int acdbXdRoom(const ads_name name, std::int32_t* result);
/// The bytes that a list of extended data takes in an object.
int acdbXdSize(const resbuf* list, std::int32_t* result);
/// Turns a text into capitals, in place.
int acdbXStrCase(ACHAR* text);
