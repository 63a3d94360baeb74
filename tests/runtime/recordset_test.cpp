#include "runtime/recordset.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <limits>
#include <string>
#include <vector>

#include "runtime/memory_recordset.h"
#include "tests/runtime/error_check.h"

namespace salerpt {
namespace {

using ::testing::AllOf;
using ::testing::ElementsAre;
using ::testing::HasSubstr;

enum Fields { kYear, kItem, kQty, kAmount, kDay, kIsRed, kRate, kMade, kName };

RecordsetRef TypedSet() {
  RecordsetRef set = MakeRecordset();
  set->AppendField("FYear", FieldType::kSmallInt, 0);
  set->AppendField("FItemID", FieldType::kInteger, 0);
  set->AppendField("FQty", FieldType::kDouble, 0);
  set->AppendField("FAmount", FieldType::kCurrency, 0);
  set->AppendField("FDate", FieldType::kDate, 0);
  set->AppendField("FIsRed", FieldType::kBoolean, 0);
  set->AppendField("FRate", FieldType::kNumeric, 0);
  set->AppendField("FMade", FieldType::kTimestamp, 0);
  set->AppendField("FName", FieldType::kVarChar, 4);
  set->Open();
  return set;
}

// One integer field FItemID with the values given.
RecordsetRef NumberSet(const std::vector<std::int32_t>& values) {
  RecordsetRef set = MakeRecordset();
  set->AppendField("FItemID", FieldType::kInteger, 0);
  set->Open();
  for (const std::int32_t value : values) {
    set->AddNew();
    set->SetInt32(0, value);
    set->Update();
  }
  if (!values.empty()) set->MoveFirst();
  return set;
}

std::vector<std::int32_t> RestOf(Recordset& set) {
  std::vector<std::int32_t> values;
  for (; !set.Eof(); set.MoveNext()) values.push_back(set.Int32(0));
  return values;
}

// --- Structure

TEST(Recordset, TellsItsFieldsInTheOrderOfAppending) {
  const RecordsetRef set = TypedSet();
  EXPECT_EQ(set->FieldCount(), 9);
  EXPECT_EQ(set->Field(0).name, "FYear");
  EXPECT_EQ(set->Field(0).type, FieldType::kSmallInt);
  EXPECT_EQ(set->Field(8).name, "FName");
  EXPECT_EQ(set->Field(8).type, FieldType::kVarChar);
  EXPECT_EQ(set->Field(8).size, 4);
}

TEST(Recordset, KeepsTypeAndSizeAsTheyWereGiven) {
  const RecordsetRef set = MakeRecordset();
  set->AppendField("FQty", FieldType::kDouble, 8);
  set->AppendField("FName", static_cast<FieldType>(202), 50);
  EXPECT_EQ(set->Field(0).size, 8);
  EXPECT_EQ(static_cast<int>(set->Field(1).type), 202);
  EXPECT_EQ(set->Field(1).size, 50);
}

TEST(Recordset, FindsFieldsWithoutRegardToCase) {
  const RecordsetRef set = TypedSet();
  EXPECT_EQ(set->FindField("fitemid"), 1);
  EXPECT_EQ(set->FieldIndex("FITEMID"), 1);
  EXPECT_EQ(set->FindField("FItem"), -1);
}

TEST(Recordset, RaisesForAFieldThatItDoesNotHave) {
  const RecordsetRef set = TypedSet();
  const auto error = RaisedBy([&] { static_cast<void>(set->FieldIndex("FBom")); });
  ASSERT_TRUE(error.has_value());
  EXPECT_EQ(error->Number(), error_number::kNoSuchField);
  EXPECT_THAT(error->Description(), HasSubstr("\"FBom\""));
  set->AddNew();
  EXPECT_EQ(NumberRaisedBy([&] { static_cast<void>(set->Field(9)); }), error_number::kNoSuchField);
  EXPECT_EQ(NumberRaisedBy([&] { static_cast<void>(set->Field(-1)); }), error_number::kNoSuchField);
  EXPECT_EQ(NumberRaisedBy([&] { static_cast<void>(set->Value(9)); }), error_number::kNoSuchField);
  EXPECT_EQ(NumberRaisedBy([&] { set->SetInt32(-1, 1); }), error_number::kNoSuchField);
  EXPECT_EQ(NumberRaisedBy([&] { static_cast<void>(set->Value("FBom")); }), error_number::kNoSuchField);
}

// --- Building

TEST(Recordset, RefusesAFieldNameTwice) {
  const RecordsetRef set = MakeRecordset();
  set->AppendField("FName", FieldType::kVarChar, 30);
  EXPECT_EQ(NumberRaisedBy([&] { set->AppendField("FNAME", FieldType::kInteger, 0); }),
            error_number::kDuplicateKey);
  EXPECT_EQ(set->FieldCount(), 1);
}

TEST(Recordset, RefusesFieldsThatAreNone) {
  const RecordsetRef set = MakeRecordset();
  EXPECT_EQ(NumberRaisedBy([&] { set->AppendField("", FieldType::kInteger, 0); }),
            error_number::kWrongArguments);
  EXPECT_EQ(NumberRaisedBy([&] { set->AppendField("FName", FieldType::kVarChar, 0); }),
            error_number::kWrongArguments);
  EXPECT_THAT(DescriptionRaisedBy([&] { set->AppendField("FName", static_cast<FieldType>(12), 0); }),
              HasSubstr("field type 12"));
  EXPECT_EQ(set->FieldCount(), 0);
}

TEST(Recordset, TakesTextsOfAnyLengthWhereTheSizeIsLeftOut) {
  const RecordsetRef set = MakeRecordset();
  set->AppendField("FNote", FieldType::kVarChar, Recordset::kUnspecified);
  set->Open();
  set->AddNew();
  set->SetText(0, std::string(200'000, 'x'));
  EXPECT_EQ(set->Text(0), std::string(200'000, 'x'));
}

TEST(Recordset, RefusesATextThatNoSetCanHold) {
  const RecordsetRef set = MakeRecordset();
  set->AppendField("FNote", FieldType::kVarChar, Recordset::kUnspecified);
  set->Open();
  set->AddNew();
  set->SetText(0, std::string(16'777'215, 'x'));
  EXPECT_EQ(NumberRaisedBy([&] { set->SetText(0, std::string(16'777'216, 'y')); }),
            error_number::kWrongArguments);
  EXPECT_EQ(set->Text(0).size(), 16'777'215U);
}

TEST(Recordset, IsBuiltBeforeItIsOpenedOnly) {
  const RecordsetRef set = TypedSet();
  EXPECT_EQ(NumberRaisedBy([&] { set->AppendField("FNew", FieldType::kInteger, 0); }),
            error_number::kInvalidCall);
  EXPECT_EQ(NumberRaisedBy([&] { set->SetCursorLocation(3); }), error_number::kInvalidCall);
  EXPECT_EQ(NumberRaisedBy([&] { set->Open(); }), error_number::kInvalidCall);
}

TEST(Recordset, IsNotOpenedWithoutFields) {
  const RecordsetRef set = MakeRecordset();
  EXPECT_EQ(NumberRaisedBy([&] { set->Open(); }), error_number::kInvalidCall);
  EXPECT_FALSE(set->IsOpen());
}

TEST(Recordset, TakesTheTwoCursorLocations) {
  const RecordsetRef set = MakeRecordset();
  set->SetCursorLocation(Recordset::kClientSide);
  set->SetCursorLocation(2);
  EXPECT_THAT(DescriptionRaisedBy([&] { set->SetCursorLocation(1); }), HasSubstr("cursor location 1"));
}

TEST(Recordset, BeginsARowWithNulls) {
  const RecordsetRef set = TypedSet();
  set->AddNew();
  for (int field = 0; field < set->FieldCount(); ++field) {
    EXPECT_TRUE(set->IsNull(field));
    EXPECT_EQ(set->Value(field), Variant(Null()));
  }
}

TEST(Recordset, CountsARowWhenItIsEnded) {
  const RecordsetRef set = TypedSet();
  set->AddNew();
  EXPECT_EQ(set->RecordCount(), 0);
  EXPECT_FALSE(set->Eof());
  set->Update();
  EXPECT_EQ(set->RecordCount(), 1);
  set->Update();
  EXPECT_EQ(set->RecordCount(), 1);
}

TEST(Recordset, EndsARowByAFurtherOneAMoveOrAFilter) {
  const RecordsetRef set = NumberSet({});
  set->AddNew();
  set->SetInt32(0, 1);
  set->AddNew();
  set->SetInt32(0, 2);
  EXPECT_EQ(set->RecordCount(), 1);
  set->MoveFirst();
  EXPECT_EQ(set->RecordCount(), 2);
  set->AddNew();
  set->SetInt32(0, 3);
  set->SetFilter("");
  EXPECT_EQ(set->RecordCount(), 3);
  set->AddNew();
  set->SetInt32(0, 4);
  set->Move(-1);
  EXPECT_EQ(set->Int32(0), 3);
  set->AddNew();
  set->SetInt32(0, 5);
  set->MoveNext();
  EXPECT_TRUE(set->Eof());
  set->MoveFirst();
  EXPECT_THAT(RestOf(*set), ElementsAre(1, 2, 3, 4, 5));
}

TEST(Recordset, StandsOnTheRowAddedLast) {
  const RecordsetRef set = NumberSet({1, 2});
  set->AddNew();
  set->SetInt32(0, 3);
  set->Update();
  EXPECT_EQ(set->Int32(0), 3);
  set->SetInt32(0, 4);
  set->MoveFirst();
  EXPECT_THAT(RestOf(*set), ElementsAre(1, 2, 4));
}

// --- Closed

TEST(Recordset, RaisesForEveryOperationBeforeItIsOpened) {
  const RecordsetRef set = MakeRecordset();
  set->AppendField("FItemID", FieldType::kInteger, 0);
  const auto number = [&](auto operation) { return NumberRaisedBy([&] { operation(*set); }); };
  EXPECT_EQ(number([](Recordset& s) { s.AddNew(); }), error_number::kClosedRecordset);
  EXPECT_EQ(number([](Recordset& s) { s.Update(); }), error_number::kClosedRecordset);
  EXPECT_EQ(number([](Recordset& s) { s.Close(); }), error_number::kClosedRecordset);
  EXPECT_EQ(number([](Recordset& s) { static_cast<void>(s.RecordCount()); }), error_number::kClosedRecordset);
  EXPECT_EQ(number([](Recordset& s) { static_cast<void>(s.Eof()); }), error_number::kClosedRecordset);
  EXPECT_EQ(number([](Recordset& s) { s.MoveFirst(); }), error_number::kClosedRecordset);
  EXPECT_EQ(number([](Recordset& s) { s.MoveNext(); }), error_number::kClosedRecordset);
  EXPECT_EQ(number([](Recordset& s) { s.Move(1); }), error_number::kClosedRecordset);
  EXPECT_EQ(number([](Recordset& s) { s.SetFilter(""); }), error_number::kClosedRecordset);
  EXPECT_EQ(number([](Recordset& s) { static_cast<void>(s.Filter()); }), error_number::kClosedRecordset);
  EXPECT_EQ(number([](Recordset& s) { static_cast<void>(s.Value(0)); }), error_number::kClosedRecordset);
  EXPECT_EQ(number([](Recordset& s) { s.SetValue(0, 1); }), error_number::kClosedRecordset);
  EXPECT_EQ(number([](Recordset& s) { static_cast<void>(s.Int32(0)); }), error_number::kClosedRecordset);
  EXPECT_EQ(number([](Recordset& s) { s.SetInt32(0, 1); }), error_number::kClosedRecordset);
}

TEST(Recordset, RaisesForEveryOperationAfterItIsClosed) {
  const RecordsetRef set = NumberSet({1, 2});
  set->SetFilter("FItemID=1");
  set->Close();
  EXPECT_FALSE(set->IsOpen());
  const auto number = [&](auto operation) { return NumberRaisedBy([&] { operation(*set); }); };
  EXPECT_EQ(number([](Recordset& s) { s.AddNew(); }), error_number::kClosedRecordset);
  EXPECT_EQ(number([](Recordset& s) { s.Open(); }), error_number::kClosedRecordset);
  EXPECT_EQ(number([](Recordset& s) { s.Close(); }), error_number::kClosedRecordset);
  EXPECT_EQ(number([](Recordset& s) { static_cast<void>(s.FieldCount()); }), error_number::kClosedRecordset);
  EXPECT_EQ(number([](Recordset& s) { static_cast<void>(s.Field(0)); }), error_number::kClosedRecordset);
  EXPECT_EQ(number([](Recordset& s) { static_cast<void>(s.FindField("FItemID")); }),
            error_number::kClosedRecordset);
  EXPECT_EQ(number([](Recordset& s) { s.AppendField("F", FieldType::kInteger, 0); }),
            error_number::kClosedRecordset);
  EXPECT_EQ(number([](Recordset& s) { static_cast<void>(s.Eof()); }), error_number::kClosedRecordset);
  EXPECT_EQ(number([](Recordset& s) { static_cast<void>(s.Value(0)); }), error_number::kClosedRecordset);
}

// --- Cursor

TEST(Recordset, WithoutRowsStandsAtItsEnd) {
  const RecordsetRef set = NumberSet({});
  EXPECT_EQ(set->RecordCount(), 0);
  EXPECT_TRUE(set->Eof());
  set->MoveFirst();
  EXPECT_TRUE(set->Eof());
  EXPECT_EQ(NumberRaisedBy([&] { set->MoveNext(); }), error_number::kNoCurrentRow);
  EXPECT_EQ(NumberRaisedBy([&] { set->Move(0); }), error_number::kNoCurrentRow);
  EXPECT_EQ(NumberRaisedBy([&] { set->Move(-1); }), error_number::kNoCurrentRow);
  EXPECT_EQ(NumberRaisedBy([&] { set->Move(1); }), error_number::kNoCurrentRow);
}

TEST(Recordset, WalksItsRowsToTheEnd) {
  const RecordsetRef set = NumberSet({5, 6, 7});
  EXPECT_THAT(RestOf(*set), ElementsAre(5, 6, 7));
  EXPECT_TRUE(set->Eof());
  const auto error = RaisedBy([&] { set->MoveNext(); });
  ASSERT_TRUE(error.has_value());
  EXPECT_EQ(error->Number(), error_number::kNoCurrentRow);
  EXPECT_EQ(error->Description(),
            "MoveNext needs a current row, and the recordset stands behind its last of 3 rows");
  set->MoveFirst();
  EXPECT_EQ(set->Int32(0), 5);
}

TEST(Recordset, RaisesForValuesWithoutACurrentRow) {
  const RecordsetRef set = NumberSet({5});
  set->MoveNext();
  EXPECT_EQ(NumberRaisedBy([&] { static_cast<void>(set->Value(0)); }), error_number::kNoCurrentRow);
  EXPECT_EQ(NumberRaisedBy([&] { static_cast<void>(set->IsNull(0)); }), error_number::kNoCurrentRow);
  EXPECT_THAT(DescriptionRaisedBy([&] { static_cast<void>(set->Int32(0)); }), HasSubstr("field FItemID"));
  EXPECT_EQ(NumberRaisedBy([&] { set->SetInt32(0, 1); }), error_number::kNoCurrentRow);
  EXPECT_EQ(NumberRaisedBy([&] { set->SetValue(0, 1); }), error_number::kNoCurrentRow);
}

TEST(Recordset, MovesByRowsForwardAndBackward) {
  const RecordsetRef set = NumberSet({0, 1, 2, 3, 4});
  set->Move(3);
  EXPECT_EQ(set->Int32(0), 3);
  set->Move(-2);
  EXPECT_EQ(set->Int32(0), 1);
  set->Move(0);
  EXPECT_EQ(set->Int32(0), 1);
}

TEST(Recordset, StopsBehindTheLastRow) {
  const RecordsetRef set = NumberSet({0, 1, 2});
  set->Move(std::numeric_limits<std::int32_t>::max());
  EXPECT_TRUE(set->Eof());
  EXPECT_EQ(NumberRaisedBy([&] { set->Move(1); }), error_number::kNoCurrentRow);
  EXPECT_EQ(NumberRaisedBy([&] { set->Move(0); }), error_number::kNoCurrentRow);
  set->Move(-1);
  EXPECT_EQ(set->Int32(0), 2);
}

TEST(Recordset, StopsBeforeTheFirstRow) {
  const RecordsetRef set = NumberSet({0, 1, 2});
  set->MoveNext();
  set->Move(std::numeric_limits<std::int32_t>::min());
  EXPECT_FALSE(set->Eof());
  EXPECT_THAT(DescriptionRaisedBy([&] { static_cast<void>(set->Int32(0)); }), HasSubstr("before its first"));
  EXPECT_EQ(NumberRaisedBy([&] { set->Move(-1); }), error_number::kNoCurrentRow);
  EXPECT_EQ(NumberRaisedBy([&] { set->Move(0); }), error_number::kNoCurrentRow);
  set->MoveNext();
  EXPECT_EQ(set->Int32(0), 0);
  set->Move(-1);
  set->Move(2);
  EXPECT_EQ(set->Int32(0), 1);
}

TEST(Recordset, KeepsRowsOverManyBlocks) {
  std::vector<std::int32_t> values;
  for (std::int32_t i = 0; i < 10'000; ++i) values.push_back(i * 7);
  const RecordsetRef set = NumberSet(values);
  EXPECT_EQ(set->RecordCount(), 10'000);
  EXPECT_EQ(RestOf(*set), values);
  for (const std::int32_t row : {0, 511, 512, 513, 4095, 4096, 9999}) {
    set->MoveFirst();
    set->Move(row);
    EXPECT_EQ(set->Int32(0), row * 7);
  }
}

// --- Values

TEST(Recordset, HandsValuesBackTypedAsTheField) {
  const RecordsetRef set = TypedSet();
  set->AddNew();
  for (const int field : {kYear, kItem, kQty, kAmount, kRate}) set->SetValue(field, 12);
  set->SetValue(kDay, "2003-07-01");
  set->SetValue(kIsRed, "True");
  set->SetValue(kMade, Date::FromYmd(2003, 7, 2, 8, 30));
  set->SetValue(kName, 12.5);
  EXPECT_EQ(set->Value(kYear), Variant(std::int16_t{12}));
  EXPECT_EQ(set->Value(kItem), Variant(12));
  EXPECT_EQ(set->Value(kQty), Variant(12.0));
  EXPECT_EQ(set->Value(kAmount), Variant(Currency::FromScaled(120'000)));
  EXPECT_EQ(set->Value(kDay), Variant(Date::FromYmd(2003, 7, 1)));
  EXPECT_EQ(set->Value(kIsRed), Variant(true));
  EXPECT_EQ(set->Value(kRate), Variant(12.0));
  EXPECT_EQ(set->Value(kMade), Variant(Date::FromYmd(2003, 7, 2, 8, 30)));
  EXPECT_EQ(set->Value(kName), Variant("12.5"));
}

TEST(Recordset, ReadsAndWritesByName) {
  const RecordsetRef set = TypedSet();
  set->AddNew();
  set->SetValue("fname", Variant("只"));
  EXPECT_EQ(set->Value("FNAME"), Variant("只"));
}

TEST(Recordset, PutsANullOverAValueAndAValueOverANull) {
  const RecordsetRef set = TypedSet();
  set->AddNew();
  set->SetValue(kName, "a");
  set->SetValue(kName, Null());
  EXPECT_TRUE(set->IsNull(kName));
  EXPECT_TRUE(set->IsNull(kQty));
  set->SetValue(kName, "");
  EXPECT_FALSE(set->IsNull(kName));
  EXPECT_EQ(set->Text(kName), "");
}

TEST(Recordset, StoresAnEmptyValueAsTheTypesZero) {
  const RecordsetRef set = TypedSet();
  set->AddNew();
  set->SetValue(kItem, Variant());
  set->SetValue(kName, Variant());
  EXPECT_EQ(set->Value(kItem), Variant(0));
  EXPECT_EQ(set->Value(kName), Variant(""));
}

TEST(Recordset, ReadsTypedWithoutAVariant) {
  const RecordsetRef set = TypedSet();
  set->AddNew();
  set->SetInt32(kYear, 2003);
  set->SetInt32(kItem, -7);
  set->SetDouble(kQty, 1.5);
  set->SetDouble(kRate, 0.25);
  set->SetMoney(kAmount, Currency::FromScaled(12'345));
  set->SetDate(kDay, Date::FromYmd(2003, 7, 1));
  set->SetText(kName, "名称");
  EXPECT_EQ(set->Int32(kYear), 2003);
  EXPECT_EQ(set->Int32(kItem), -7);
  EXPECT_EQ(set->Double(kQty), 1.5);
  EXPECT_EQ(set->Double(kRate), 0.25);
  EXPECT_EQ(set->Money(kAmount), Currency::FromScaled(12'345));
  EXPECT_EQ(set->DateOf(kDay), Date::FromYmd(2003, 7, 1));
  EXPECT_EQ(set->Text(kName), "名称");
}

TEST(Recordset, ConvertsBetweenTypedAccessAndOtherFields) {
  const RecordsetRef set = TypedSet();
  set->AddNew();
  set->SetInt32(kQty, 3);
  set->SetInt32(kAmount, 4);
  set->SetDouble(kItem, 2.5);
  set->SetDouble(kName, 0.5);
  set->SetMoney(kRate, Currency::FromScaled(15'000));
  set->SetText(kDay, "2003-07-01");
  set->SetDate(kMade, Date::FromYmd(2003, 7, 1));
  EXPECT_EQ(set->Double(kQty), 3.0);
  EXPECT_EQ(set->Double(kAmount), 4.0);
  // Half to even.
  EXPECT_EQ(set->Int32(kItem), 2);
  EXPECT_EQ(set->Double(kItem), 2.0);
  EXPECT_EQ(set->Int32(kQty), 3);
  EXPECT_EQ(set->Text(kName), "0.5");
  EXPECT_EQ(set->Money(kRate), Currency::FromScaled(15'000));
  EXPECT_EQ(set->Money(kName), Currency::FromScaled(5'000));
  EXPECT_EQ(set->DateOf(kDay), Date::FromYmd(2003, 7, 1));
  EXPECT_EQ(set->DateOf(kMade), Date::FromYmd(2003, 7, 1));
}

TEST(Recordset, RaisesForNullsReadTyped) {
  const RecordsetRef set = TypedSet();
  set->AddNew();
  EXPECT_EQ(NumberRaisedBy([&] { static_cast<void>(set->Int32(kYear)); }), error_number::kInvalidNull);
  EXPECT_EQ(NumberRaisedBy([&] { static_cast<void>(set->Double(kQty)); }), error_number::kInvalidNull);
  EXPECT_EQ(NumberRaisedBy([&] { static_cast<void>(set->Money(kAmount)); }), error_number::kInvalidNull);
  EXPECT_EQ(NumberRaisedBy([&] { static_cast<void>(set->DateOf(kDay)); }), error_number::kInvalidNull);
  EXPECT_THAT(DescriptionRaisedBy([&] { static_cast<void>(set->Text(kName)); }),
              HasSubstr("field FName is null"));
}

TEST(Recordset, RaisesForTextOfAnotherField) {
  const RecordsetRef set = TypedSet();
  set->AddNew();
  set->SetInt32(kItem, 5);
  const auto error = RaisedBy([&] { static_cast<void>(set->Text(kItem)); });
  ASSERT_TRUE(error.has_value());
  EXPECT_EQ(error->Number(), error_number::kTypeMismatch);
  EXPECT_THAT(error->Description(), HasSubstr("field FItemID"));
}

TEST(Recordset, RaisesForAValueOfAnotherKindAndKeepsTheOldOne) {
  const RecordsetRef set = TypedSet();
  set->AddNew();
  set->SetInt32(kItem, 5);
  const auto error = RaisedBy([&] { set->SetValue(kItem, "kettle"); });
  ASSERT_TRUE(error.has_value());
  EXPECT_EQ(error->Number(), error_number::kTypeMismatch);
  EXPECT_THAT(error->Description(), AllOf(HasSubstr("FItemID"), HasSubstr("kettle")));
  EXPECT_EQ(set->Int32(kItem), 5);
  EXPECT_EQ(NumberRaisedBy([&] { set->SetText(kDay, "2003-02-30"); }), error_number::kTypeMismatch);
  EXPECT_EQ(NumberRaisedBy([&] { set->SetValue(kName, Variant(ObjectRef(set))); }),
            error_number::kTypeMismatch);
}

TEST(Recordset, RaisesForANumberThatDoesNotFit) {
  const RecordsetRef set = TypedSet();
  set->AddNew();
  set->SetInt32(kYear, 32'767);
  set->SetInt32(kYear, -32'768);
  const auto error = RaisedBy([&] { set->SetInt32(kYear, 32'768); });
  ASSERT_TRUE(error.has_value());
  EXPECT_EQ(error->Number(), error_number::kOverflow);
  EXPECT_THAT(error->Description(), AllOf(HasSubstr("FYear"), HasSubstr("32768")));
  EXPECT_EQ(NumberRaisedBy([&] { set->SetInt32(kYear, -32'769); }), error_number::kOverflow);
  EXPECT_EQ(NumberRaisedBy([&] { set->SetDouble(kItem, 2'147'483'648.0); }), error_number::kOverflow);
  EXPECT_EQ(NumberRaisedBy([&] { set->SetDouble(kAmount, 1e15); }), error_number::kOverflow);
  EXPECT_EQ(set->Int32(kYear), -32'768);
}

TEST(Recordset, CountsCharactersAndNotBytesOfATextField) {
  const RecordsetRef set = TypedSet();
  set->AddNew();
  set->SetText(kName, "销售收入");
  const auto error = RaisedBy([&] { set->SetText(kName, "销售收入表"); });
  ASSERT_TRUE(error.has_value());
  EXPECT_EQ(error->Number(), error_number::kWrongArguments);
  EXPECT_THAT(error->Description(),
              AllOf(HasSubstr("FName"), HasSubstr("4 characters"), HasSubstr("销售收入表")));
  EXPECT_EQ(set->Text(kName), "销售收入");
  EXPECT_EQ(NumberRaisedBy([&] { set->SetValue(kName, 12345); }), error_number::kWrongArguments);
}

TEST(Recordset, PutsTextsOverOneAnother) {
  const RecordsetRef set = MakeRecordset();
  set->AppendField("FName", FieldType::kVarChar, 100);
  set->AppendField("FModel", FieldType::kVarChar, 100);
  set->Open();
  set->AddNew();
  set->SetText(0, "a long first text");
  set->SetText(1, "neighbour");
  set->SetText(0, "short");
  EXPECT_EQ(set->Text(0), "short");
  set->SetText(0, "a text that is longer than the first one was");
  EXPECT_EQ(set->Text(0), "a text that is longer than the first one was");
  set->SetText(0, set->Text(0).substr(2, 4));
  EXPECT_EQ(set->Text(0), "text");
  set->SetText(0, set->Text(1));
  EXPECT_EQ(set->Text(0), "neighbour");
  set->SetText(0, "");
  EXPECT_EQ(set->Text(0), "");
  EXPECT_EQ(set->Text(1), "neighbour");
}

TEST(Recordset, KeepsTextsOfEveryLength) {
  const RecordsetRef set = MakeRecordset();
  set->AppendField("FNote", FieldType::kVarChar, 5000);
  set->Open();
  const auto text_of = [](int row) {
    return std::string(static_cast<std::size_t>(row * 37 % 3000), static_cast<char>('a' + row % 26));
  };
  for (int row = 0; row < 300; ++row) {
    set->AddNew();
    set->SetText(0, text_of(row));
    set->Update();
  }
  set->MoveFirst();
  for (int row = 0; row < 300; ++row, set->MoveNext()) EXPECT_EQ(set->Text(0), text_of(row));
}

TEST(Recordset, CostsLittleMemoryForARowOfTheIncomeDetail) {
  if (RowStore::kBlockRows == 1) GTEST_SKIP() << "blocks of a single row are for tests of borders";
  MemoryRecordset set;
  for (const char* name : {"FYear", "FPeriod", "FQtyDecimal", "FPriceDecimal"}) {
    set.AppendField(name, FieldType::kSmallInt, 0, Recordset::kUnspecified);
  }
  for (const char* name : {"FInterID", "FEntryID", "FTranType", "FItemID", "FSumSort"}) {
    set.AppendField(name, FieldType::kInteger, 0, Recordset::kUnspecified);
  }
  for (const char* name : {"FQty", "FPrice"})
    set.AppendField(name, FieldType::kDouble, 0, Recordset::kUnspecified);
  set.AppendField("FAmount", FieldType::kCurrency, 0, Recordset::kUnspecified);
  set.AppendField("FDate", FieldType::kDate, 0, Recordset::kUnspecified);
  for (const char* name : {"FPeriodName", "FVoucherNo", "FNote", "FBillNo", "FNumber", "FShortNumber",
                           "FName", "FModel", "FUnitName"}) {
    set.AppendField(name, FieldType::kVarChar, 355, Recordset::kUnspecified);
  }
  set.Open();
  constexpr int kRows = 100'000;
  for (int row = 0; row < kRows; ++row) {
    set.AddNew();
    for (int field = 13; field < 22; ++field) set.SetText(field, "12345678");
    set.Update();
  }
  const double text_bytes = 9 * 8 * kRows;
  EXPECT_LT((static_cast<double>(set.CellBytes() + set.TextBytes()) - text_bytes) / kRows, 200);
}

// --- Late binding

TEST(Recordset, IsBuiltAndReadLateBound) {
  const ObjectRef set = MakeRecordset();
  Call(set, "AppendField", "FItemID", 3, 0, -1);
  Call(set, "AppendField", "FName", 200, 30);
  LetMember(set, "CursorLocation", 3);
  Call(set, "Open", Variant(), Variant(), -1, -1, -1);
  Call(set, "AddNew");
  std::vector<Variant> item{"fitemid", 7};
  set->Invoke("Fields", InvokeKind::kLet, item);
  std::vector<Variant> name{1, "壶"};
  set->Invoke("Fields", InvokeKind::kLet, name);
  Call(set, "Update");
  Call(set, "MoveFirst");
  EXPECT_EQ(GetMember(set, "RecordCount"), Variant(1));
  EXPECT_EQ(GetMember(set, "EOF"), Variant(false));
  EXPECT_EQ(Call(set, "Fields", "FName"), Variant("壶"));
  EXPECT_EQ(Call(set, "fields", 0), Variant(7));
  Call(set, "MoveNext");
  EXPECT_EQ(GetMember(set, "EOF"), Variant(true));
  Call(set, "Move", -1);
  EXPECT_EQ(Call(set, "Fields", "FItemID"), Variant(7));
  LetMember(set, "Filter", "FItemID=8");
  EXPECT_EQ(GetMember(set, "Filter"), Variant("FItemID=8"));
  EXPECT_EQ(GetMember(set, "RecordCount"), Variant(0));
  LetMember(set, "Filter", 0);
  EXPECT_EQ(GetMember(set, "Filter"), Variant(""));
  EXPECT_EQ(GetMember(set, "RecordCount"), Variant(1));
  Call(set, "Close");
  EXPECT_EQ(NumberRaisedBy([&] { GetMember(set, "RecordCount"); }), error_number::kClosedRecordset);
}

TEST(Recordset, RaisesForWrongLateBoundUse) {
  const RecordsetRef made = NumberSet({1});
  const ObjectRef set = made;
  EXPECT_EQ(NumberRaisedBy([&] { Call(set, "MoveLast"); }), error_number::kNoSuchMember);
  EXPECT_EQ(NumberRaisedBy([&] { Call(set, "Move"); }), error_number::kWrongArguments);
  EXPECT_EQ(NumberRaisedBy([&] { Call(set, "Fields", "FBom"); }), error_number::kNoSuchField);
  EXPECT_EQ(NumberRaisedBy([&] { Call(set, "Fields", 1); }), error_number::kNoSuchField);
  const ObjectRef other = MakeRecordset();
  Call(other, "AppendField", "FItemID", 3);
  EXPECT_EQ(NumberRaisedBy([&] { Call(other, "Open", "select 1"); }), error_number::kWrongArguments);
}

TEST(Recordset, NamesItsClass) {
  EXPECT_EQ(MakeRecordset()->ClassName(), "ADODB.Recordset");
}

}  // namespace
}  // namespace salerpt
