-- The tables of a company, as the pick dialogs read them.
--
-- The sample company's writer reads this file for other databases too, so it keeps to one form: a column is
--   name TYPE [NOT NULL] [PRIMARY KEY]
-- with the types BOOLEAN (0 or 1), DATE (text YYYY-MM-DD), VARCHAR(n) (n characters), DOUBLE, SMALLINT and INTEGER.
-- INTEGER PRIMARY KEY numbers its rows by itself. There are no foreign keys: documents outlive what they refer to.
-- An index bears the name by which the dialogs open it, with the table's name behind it where several tables
-- have an index of that name.

-- System settings: one row.
CREATE TABLE Sys (
  QtyDec SMALLINT,
  PrcDec SMALLINT,
  MultiAcct BOOLEAN,
  MultiLoc BOOLEAN
);

-- Codes that other records refer to.
CREATE TABLE Area (Zip VARCHAR(30) NOT NULL);
CREATE UNIQUE INDEX PK_ZIP ON Area (Zip);

CREATE TABLE Suburb (Suburb VARCHAR(30) NOT NULL);
CREATE UNIQUE INDEX PK_SUBURB ON Suburb (Suburb);

CREATE TABLE State (State VARCHAR(5) NOT NULL);
CREATE UNIQUE INDEX PK_STATE ON State (State);

CREATE TABLE Terms (
  "Desc" VARCHAR(35) NOT NULL,
  "Default" BOOLEAN
);
CREATE UNIQUE INDEX PK_DESC_Terms ON Terms ("Desc");

CREATE TABLE CstCtr (
  CstCtr VARCHAR(9) NOT NULL,
  "Desc" VARCHAR(50),
  "Default" BOOLEAN
);
CREATE UNIQUE INDEX PK_CSTCTR ON CstCtr (CstCtr);

CREATE TABLE GSTRates (
  ID VARCHAR(3) NOT NULL,
  TaxDesc VARCHAR(15),
  Rate DOUBLE
);
CREATE UNIQUE INDEX PK_ID_GSTRates ON GSTRates (ID);

CREATE TABLE ItemCat (
  CatID VARCHAR(3) NOT NULL,
  Descript VARCHAR(50)
);
CREATE UNIQUE INDEX PK_CATID ON ItemCat (CatID);

CREATE TABLE ItemClass (
  Class VARCHAR(3) NOT NULL,
  ClassDesc VARCHAR(20)
);
CREATE UNIQUE INDEX PK_CLASS ON ItemClass (Class);

CREATE TABLE Jobs (
  JobNo VARCHAR(6) NOT NULL,
  "Desc" VARCHAR(25)
);
CREATE UNIQUE INDEX PK_JOBNO ON Jobs (JobNo);

CREATE TABLE Entity (
  Entity VARCHAR(4) NOT NULL,
  "Desc" VARCHAR(50),
  OEDefault BOOLEAN
);
CREATE UNIQUE INDEX PK_ENTITY ON Entity (Entity);

CREATE TABLE FinanceRates (
  "Key" DOUBLE NOT NULL,
  Name VARCHAR(50),
  Percent DOUBLE
);
CREATE UNIQUE INDEX PK_KEY ON FinanceRates ("Key");

CREATE TABLE ItemFactorPresets (
  ID INTEGER PRIMARY KEY,
  Description VARCHAR(50)
);

CREATE TABLE Presets (
  PresetID INTEGER PRIMARY KEY,
  Descript VARCHAR(35)
);

-- Places where material is cut.
CREATE TABLE Location ("Desc" VARCHAR(30) NOT NULL);
CREATE UNIQUE INDEX PK_DESC_Location ON Location ("Desc");

-- Accounting periods. Closed holds the day on which a period was closed. RealPeriod is its calendar month, YYYYMM.
CREATE TABLE Periods (
  Period VARCHAR(4) NOT NULL,
  Start DATE,
  "End" DATE,
  RealPeriod VARCHAR(6),
  Closed DATE
);
CREATE UNIQUE INDEX PK_PERIOD ON Periods (Period);

-- Aged payables as they stood at the end of a period: one row a vendor.
CREATE TABLE APAgeHist (
  Period VARCHAR(4) NOT NULL,
  VendID VARCHAR(6) NOT NULL,
  Balance DOUBLE
);
CREATE INDEX FK_PERIOD ON APAgeHist (Period);

-- Periods that have item history.
CREATE TABLE IPHistParents (Period VARCHAR(4) NOT NULL);
CREATE UNIQUE INDEX PK_PERIOD_IPHistParents ON IPHistParents (Period);

-- Staff.
CREATE TABLE Dept (Department VARCHAR(10) NOT NULL);
CREATE UNIQUE INDEX PK_DEPARTMENT ON Dept (Department);

CREATE TABLE Names (
  UserName VARCHAR(10) NOT NULL,
  DisplayNm VARCHAR(30),
  Entity VARCHAR(4),
  Inactive BOOLEAN
);
CREATE UNIQUE INDEX PK_USERNAME ON Names (UserName);

CREATE TABLE SalesMen (
  SalesMan VARCHAR(30) NOT NULL,
  Department VARCHAR(10),
  Title VARCHAR(35),
  Entity VARCHAR(4),
  DiscontD BOOLEAN
);
CREATE UNIQUE INDEX PK_SALESMAN ON SalesMen (SalesMan);

-- Customers, prospects and the people there, vendors.
CREATE TABLE Cust (
  ID VARCHAR(6) NOT NULL,
  FirstName VARCHAR(35),
  Company VARCHAR(35),
  Addr1 VARCHAR(35),
  Zip VARCHAR(30),
  Phone VARCHAR(15),
  Contact VARCHAR(30),
  Email VARCHAR(40),
  Entity VARCHAR(4),
  Inactive BOOLEAN
);
CREATE UNIQUE INDEX PK_ID_Cust ON Cust (ID);

CREATE TABLE CustBal (
  CustID VARCHAR(6) NOT NULL,
  Balance DOUBLE,
  Credit DOUBLE
);
CREATE INDEX FK_CUSTID ON CustBal (CustID);

CREATE TABLE Prospect (
  ID VARCHAR(6) NOT NULL,
  Company VARCHAR(35),
  Contact VARCHAR(30),
  Email VARCHAR(40)
);
CREATE UNIQUE INDEX PK_ID_Prospect ON Prospect (ID);

-- A contact belongs to a customer (ID) or to a prospect (ProspectID).
CREATE TABLE Contact (
  ID VARCHAR(6),
  ProspectID VARCHAR(6),
  Contact VARCHAR(30),
  Email VARCHAR(40)
);
CREATE INDEX FK_ID_Contact ON Contact (ID);
CREATE INDEX FK_PROSPECTID_Contact ON Contact (ProspectID);

CREATE TABLE Vend (
  ID VARCHAR(6) NOT NULL,
  Company VARCHAR(35),
  Addr1 VARCHAR(35),
  Zip VARCHAR(30),
  Phone VARCHAR(15),
  Email VARCHAR(40),
  Contractor BOOLEAN,
  Service BOOLEAN,
  InActive BOOLEAN
);
CREATE UNIQUE INDEX PK_ID_Vend ON Vend (ID);

-- Order-entry documents; ID is the customer. A quote group (G) has members (M).
CREATE TABLE OE (
  Type VARCHAR(1) NOT NULL,
  Number VARCHAR(8) NOT NULL,
  ID VARCHAR(6),
  JobNo VARCHAR(6),
  "Date" DATE,
  SubTotal DOUBLE,
  FedTax DOUBLE,
  SalesMan VARCHAR(30),
  ShipTo2 VARCHAR(35),
  Posted BOOLEAN,
  StockReturned BOOLEAN,
  Internal BOOLEAN,
  StockTrans BOOLEAN
);
CREATE UNIQUE INDEX PK_NUMBER_OE ON OE (Number, Type);
CREATE INDEX FK_ID_OE ON OE (ID);
CREATE INDEX FK_JOBNO_OE ON OE (JobNo);

CREATE TABLE OEQuoteGrps (
  Quote VARCHAR(8) NOT NULL,
  QuoteType VARCHAR(1) NOT NULL,
  Parent VARCHAR(8) NOT NULL,
  ParentType VARCHAR(1) NOT NULL,
  Customer VARCHAR(6)
);
CREATE INDEX FK_PARENT ON OEQuoteGrps (Parent, ParentType);
CREATE INDEX FK_QUOTE ON OEQuoteGrps (Quote, QuoteType);

-- Receivables; ID is the customer. Type IN is an invoice, PA a payment, AD an adjustment.
CREATE TABLE AR (
  ID VARCHAR(6) NOT NULL,
  Type VARCHAR(2) NOT NULL,
  InvNo VARCHAR(8),
  "Date" DATE,
  Due DATE,
  "Desc" VARCHAR(40),
  Bal DOUBLE,
  Amt DOUBLE,
  OEDt VARCHAR(1),
  Batch VARCHAR(8),
  Entity VARCHAR(4)
);
CREATE INDEX FK_ID_AR ON AR (ID);

-- Bookings of a vendor for a customer or a prospect. Times are minutes after midnight.
CREATE TABLE Booking (
  ID VARCHAR(6) NOT NULL,
  VendID VARCHAR(6),
  CustID VARCHAR(6),
  ProspectID VARCHAR(6),
  BegDate DATE,
  EndDate DATE,
  StartTime SMALLINT,
  FinishTime SMALLINT,
  OEInv VARCHAR(8),
  OEDT VARCHAR(1),
  PaidFor BOOLEAN
);
CREATE UNIQUE INDEX PK_ID_Booking ON Booking (ID);
CREATE INDEX FK_VENDID_Booking ON Booking (VendID);

-- Lines of payables batches that are still being entered.
CREATE TABLE APBtchDT (
  Batch VARCHAR(8) NOT NULL,
  BookingID VARCHAR(6)
);
CREATE INDEX FK_BOOKINGID ON APBtchDT (BookingID);

-- Purchase orders; ID is the vendor, PONumber and POType name the order-entry document. Type P is an order for a
-- customer, M one for several documents, null one for stock.
CREATE TABLE IP (
  Number VARCHAR(10) NOT NULL,
  "Date" DATE,
  ID VARCHAR(6),
  CustID VARCHAR(6),
  PONumber VARCHAR(8),
  POType VARCHAR(1),
  Type VARCHAR(1),
  Posted BOOLEAN,
  Closed BOOLEAN,
  POReceipt BOOLEAN,
  Canceled BOOLEAN,
  APDocket BOOLEAN,
  RMA BOOLEAN,
  Cost DOUBLE,
  FedTax DOUBLE
);
CREATE UNIQUE INDEX PK_NUMBER_IP ON IP (Number);
CREATE INDEX FK_ID_IP ON IP (ID);
CREATE INDEX FK_CUSTID_IP ON IP (CustID);
CREATE INDEX FK_PONUMBER ON IP (PONumber, POType);

-- Extras that a purchase order's line can carry: a vendor's own, or everybody's (VendID is null).
CREATE TABLE IPDetExtraMaster (
  ID INTEGER PRIMARY KEY,
  Descript VARCHAR(32),
  Cost DOUBLE,
  VendID VARCHAR(6)
);
CREATE INDEX FK_VENDID ON IPDetExtraMaster (VendID);

-- Stock.
CREATE TABLE Item (
  Item VARCHAR(15) NOT NULL,
  "Desc" VARCHAR(35),
  Type SMALLINT,
  ParentItem VARCHAR(15),
  SupplyLot VARCHAR(25),
  LocalRefNo VARCHAR(20)
);
CREATE UNIQUE INDEX PK_ITEM ON Item (Item);
CREATE INDEX FK_PARENTITEM ON Item (ParentItem);

CREATE TABLE ItemLocations (
  ID INTEGER PRIMARY KEY,
  ShortName VARCHAR(5),
  FullName VARCHAR(50)
);

CREATE TABLE ItemDet (
  Item VARCHAR(15) NOT NULL,
  ItemLoc INTEGER NOT NULL,
  OnHand DOUBLE,
  BinLocation VARCHAR(15)
);
CREATE UNIQUE INDEX FK_ITEM_ItemDet ON ItemDet (Item, ItemLoc);
CREATE INDEX FK_ITEMLOC_ItemDet ON ItemDet (ItemLoc);

CREATE TABLE ItemCost (
  "Key" INTEGER PRIMARY KEY,
  Item VARCHAR(15) NOT NULL,
  ItemLoc INTEGER,
  "Date" DATE,
  Qty DOUBLE,
  UnitCost DOUBLE,
  UnitBuff DOUBLE
);
CREATE INDEX FK_ITEM_ItemCost ON ItemCost (Item);

CREATE TABLE Kits (
  ID INTEGER PRIMARY KEY,
  Item VARCHAR(15),
  Descript VARCHAR(35)
);
CREATE UNIQUE INDEX PK_ID_Kits ON Kits (ID);

CREATE TABLE KitDetails (
  KitID INTEGER NOT NULL,
  Item VARCHAR(15),
  "Default" BOOLEAN
);
CREATE INDEX FK_KITID ON KitDetails (KitID);

CREATE TABLE PresetDetails (
  LineID INTEGER PRIMARY KEY,
  PresetID INTEGER NOT NULL,
  Descript VARCHAR(35)
);
CREATE UNIQUE INDEX PK_LINEID ON PresetDetails (LineID);

CREATE TABLE PresetOptions (
  LineID INTEGER NOT NULL,
  Item VARCHAR(15),
  "Default" BOOLEAN
);
CREATE INDEX FK_LINEID ON PresetOptions (LineID);

-- Posted batches, their ledger and payables lines, electronic payments.
CREATE TABLE PstdGLBatch (
  Batch VARCHAR(8) NOT NULL,
  Period VARCHAR(4),
  "Desc" VARCHAR(35),
  Source VARCHAR(2),
  Total DOUBLE
);
CREATE UNIQUE INDEX PK_BATCH ON PstdGLBatch (Batch);

CREATE TABLE GL (
  Batch VARCHAR(8) NOT NULL,
  "Date" DATE,
  Period VARCHAR(4),
  Source VARCHAR(2),
  Amt DOUBLE
);
CREATE INDEX FK_BATCH_GL ON GL (Batch);

CREATE TABLE AP (
  ID VARCHAR(6) NOT NULL,
  Type VARCHAR(2) NOT NULL,
  Batch VARCHAR(8),
  Amt DOUBLE
);
CREATE INDEX FK_BATCH_AP ON AP (Batch);

CREATE TABLE EFTDetails (
  Batch VARCHAR(8) NOT NULL,
  VendID VARCHAR(6),
  Posted DATE,
  Amount DOUBLE,
  Processed BOOLEAN
);
CREATE INDEX FK_BATCH_EFTDetails ON EFTDetails (Batch);
