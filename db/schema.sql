-- Pavrel database: the tables of the manual-notes module, the host stock
-- tables it writes, and the host register tables it reads.
-- Firebird dialect 3, UTF8 database. Codes INTEGER, money, quantities and rates
-- NUMERIC(18,4), flags CHAR(1) S or N, dates DATE, date-times TIMESTAMP.
-- No foreign keys: every statement runs on its own in autocommit and a
-- multi-step operation may stop half-way, so a constraint between tables
-- would refuse rows that the documented behaviour leaves behind.

-- ---------------------------------------------------------------------------
-- Generators
-- ---------------------------------------------------------------------------

CREATE GENERATOR compra_g;
CREATE GENERATOR compra_item_tmp_g;
CREATE GENERATOR est_mov_g;
CREATE GENERATOR est_mov_compo_g;
CREATE GENERATOR prod_custo_g;
CREATE GENERATOR prod_preco_g;
CREATE GENERATOR prod_custo_env_g;
CREATE GENERATOR log_alt_g;
CREATE GENERATOR nfe_corr_g;

-- ---------------------------------------------------------------------------
-- Companies, suppliers and configuration
-- ---------------------------------------------------------------------------

-- Registration data of the companies: the NF-e emitter record, the
-- destination-company names of the note list and the state of the company.
CREATE TABLE empr (
  empr_cod      INTEGER NOT NULL,
  raz           VARCHAR(60),          -- razão social
  nome_red      VARCHAR(30),
  cnpj          VARCHAR(14),          -- digits only
  ie            VARCHAR(20),          -- inscrição estadual, digits only
  logr          VARCHAR(60),          -- street
  num           VARCHAR(10),
  compl         VARCHAR(60),
  bai           VARCHAR(60),          -- district
  mun           VARCHAR(60),          -- town
  mun_ibge_cod  VARCHAR(7),
  uf            VARCHAR(2),
  cep           VARCHAR(8),
  fone1         VARCHAR(20),
  fone2         VARCHAR(20),
  email         VARCHAR(60),
  crt           SMALLINT DEFAULT 3,   -- tax regime: 1 Simples Nacional, 2 excess, 3 normal, 4 MEI
  cnae          VARCHAR(7),
  im            VARCHAR(15),          -- municipal registration
  CONSTRAINT empr_pk PRIMARY KEY (empr_cod)
);

-- Suppliers and customers: every other party of a note, transporters included.
CREATE TABLE fornec (
  fornec_cod    INTEGER NOT NULL,
  nome_red      VARCHAR(30),
  raz           VARCHAR(60),
  c             VARCHAR(14),          -- CPF or CNPJ, digits only
  ie            VARCHAR(20),
  logr          VARCHAR(60),
  num           VARCHAR(10),
  compl         VARCHAR(60),
  bai           VARCHAR(60),
  mun           VARCHAR(60),
  mun_ibge_cod  VARCHAR(7),
  uf            VARCHAR(2),
  cep           VARCHAR(8),
  fone          VARCHAR(20),
  email         VARCHAR(60),
  transp        CHAR(1) DEFAULT 'N',  -- also a transporter
  CONSTRAINT fornec_pk PRIMARY KEY (fornec_cod)
);

-- Key/value settings: a value is read trimmed, a missing key reads as empty.
CREATE TABLE config (
  chave  VARCHAR(60) NOT NULL,
  valor  VARCHAR(255),
  CONSTRAINT config_pk PRIMARY KEY (chave)
);

-- Named locks between processes and workstations: a row held by an uncommitted update.
CREATE TABLE sinc_trava (
  nome       VARCHAR(100) NOT NULL,
  texto      VARCHAR(500),
  classe     VARCHAR(60),
  estacao    INTEGER,
  adquirido  TIMESTAMP,
  CONSTRAINT sinc_trava_pk PRIMARY KEY (nome)
);

-- The last NF-e number handed out per company and series. Numbers are taken by an update of the
-- row, so two workstations never get the same one.
CREATE TABLE nfe_numero (
  empr_cod   INTEGER NOT NULL,
  serie      INTEGER NOT NULL,
  ultimo     INTEGER DEFAULT 0 NOT NULL,
  CONSTRAINT nfe_numero_pk PRIMARY KEY (empr_cod, serie)
);

-- Fiscal defaults: the first row returned holds the additional information
-- proposed for a note that has none.
CREATE TABLE fisco_config (
  fisco_config_cod       INTEGER NOT NULL,
  inf_adic_fisco         VARCHAR(2000),
  inf_adic_contribuinte  VARCHAR(5000),
  CONSTRAINT fisco_config_pk PRIMARY KEY (fisco_config_cod)
);

-- Who changed what: one row per alteration of a note (and of other records).
CREATE TABLE log_alt (
  log_alt_cod  INTEGER NOT NULL,         -- from log_alt_g
  empr_cod     INTEGER,
  estacao_cod  INTEGER,
  dth          TIMESTAMP DEFAULT CURRENT_TIMESTAMP,
  usuario      VARCHAR(60),
  tabela       VARCHAR(60),
  chave        VARCHAR(120),             -- key of the changed row, as text
  descr        VARCHAR(2000),
  CONSTRAINT log_alt_pk PRIMARY KEY (log_alt_cod)
);
CREATE INDEX log_alt_tabela ON log_alt (tabela, chave);

-- ---------------------------------------------------------------------------
-- Products
-- ---------------------------------------------------------------------------

CREATE TABLE unid (
  unid_cod  INTEGER NOT NULL,
  sigla     VARCHAR(6),
  descr     VARCHAR(60),
  CONSTRAINT unid_pk PRIMARY KEY (unid_cod)
);

-- Tax situations.
CREATE TABLE trib (
  trib_cod  INTEGER NOT NULL,
  descr     VARCHAR(60),
  perc      NUMERIC(18,4) DEFAULT 0,
  CONSTRAINT trib_pk PRIMARY KEY (trib_cod)
);

-- Price tables: table 1 is the base price, every further table adds perc % of it.
CREATE TABLE tab_preco (
  tab_preco_cod  INTEGER NOT NULL,
  nome           VARCHAR(60),
  perc           NUMERIC(18,4) DEFAULT 0,
  CONSTRAINT tab_preco_pk PRIMARY KEY (tab_preco_cod)
);

CREATE TABLE prod_fabr (
  prod_fabr_cod  INTEGER NOT NULL,
  nome           VARCHAR(60),
  CONSTRAINT prod_fabr_pk PRIMARY KEY (prod_fabr_cod)
);

CREATE TABLE prod (
  prod_cod       INTEGER NOT NULL,
  descr          VARCHAR(120),
  unid_cod       INTEGER,
  emb_qtd        NUMERIC(18,4) DEFAULT 1,  -- units per package
  trib_cod       INTEGER,
  ipi            NUMERIC(18,4) DEFAULT 0,  -- IPI rate, %
  ncm            VARCHAR(10),              -- digits only
  gtin           VARCHAR(14),
  prod_fabr_cod  INTEGER,
  cfop           VARCHAR(10),
  -- Product kind as a character whose code is the kind number:
  -- 37 (the percent sign) is a composition, made of the inputs in prod_compo.
  prod_tipo_cod  CHAR(1),
  CONSTRAINT prod_pk PRIMARY KEY (prod_cod)
);
CREATE INDEX prod_gtin ON prod (gtin);

-- Per-company complement of a product.
CREATE TABLE prod_compl (
  prod_cod  INTEGER NOT NULL,
  empr_cod  INTEGER NOT NULL,
  margem    NUMERIC(18,4) DEFAULT 0,  -- sale margin, %
  ativo     CHAR(1) DEFAULT 'S',
  CONSTRAINT prod_compl_pk PRIMARY KEY (prod_cod, empr_cod)
);

-- Extra bar codes of a product (its GTIN lives in prod.gtin).
CREATE TABLE prod_barras (
  bar_cod   VARCHAR(30) NOT NULL,
  prod_cod  INTEGER NOT NULL,
  CONSTRAINT prod_barras_pk PRIMARY KEY (bar_cod)
);
CREATE INDEX prod_barras_prod ON prod_barras (prod_cod);

-- Codes that suppliers give a product. fornec_cod 0: valid for any supplier.
CREATE TABLE prod_norig (
  norig       VARCHAR(60) NOT NULL,
  prod_cod    INTEGER NOT NULL,
  fornec_cod  INTEGER DEFAULT 0 NOT NULL,
  CONSTRAINT prod_norig_pk PRIMARY KEY (prod_cod, fornec_cod, norig)
);
CREATE INDEX prod_norig_norig ON prod_norig (norig);
CREATE INDEX prod_norig_fornec ON prod_norig (fornec_cod, norig);

-- Grades (variants): the titles of a product, and the items of each title.
-- Item code 0 of a title is the entry for no variant.
CREATE TABLE grade_tit (
  grade_tit_cod  INTEGER NOT NULL,
  descr          VARCHAR(60),
  CONSTRAINT grade_tit_pk PRIMARY KEY (grade_tit_cod)
);

CREATE TABLE grade_item (
  grade_tit_cod     INTEGER NOT NULL,
  grade_item_cod    INTEGER NOT NULL,
  grade_item_descr  VARCHAR(60),
  CONSTRAINT grade_item_pk PRIMARY KEY (grade_tit_cod, grade_item_cod)
);

CREATE TABLE prod_grade (
  prod_cod       INTEGER NOT NULL,
  grade_tit_cod  INTEGER NOT NULL,
  CONSTRAINT prod_grade_pk PRIMARY KEY (prod_cod, grade_tit_cod)
);

-- Composition: qtd of the input prod_cod_filho per unit of prod_cod_pai.
-- The same input may be listed twice, so there is no key on the pair.
CREATE TABLE prod_compo (
  prod_cod_pai    INTEGER NOT NULL,
  prod_cod_filho  INTEGER NOT NULL,
  qtd             NUMERIC(18,4) DEFAULT 0
);
CREATE INDEX prod_compo_pai ON prod_compo (prod_cod_pai);
CREATE INDEX prod_compo_filho ON prod_compo (prod_cod_filho);

-- Current cost per company and product: fornec_cod NULL or 0 is the general
-- cost, any other the last cost from that supplier.  NULL and 0 both mean
-- general, so the host keeps one such row per product and no key can say so.
CREATE TABLE prod_custo_atual (
  empr_cod    INTEGER NOT NULL,
  prod_cod    INTEGER NOT NULL,
  fornec_cod  INTEGER,
  custo       NUMERIC(18,4) DEFAULT 0,
  dt          DATE,
  dth_atu     TIMESTAMP DEFAULT CURRENT_TIMESTAMP
);
CREATE INDEX prod_custo_atual_prod ON prod_custo_atual (empr_cod, prod_cod, fornec_cod);

-- Cost history: one row per cost created, e.g. by posting a purchase.
CREATE TABLE prod_custo (
  prod_custo_cod  INTEGER NOT NULL,    -- from prod_custo_g
  empr_cod        INTEGER,
  prod_cod        INTEGER,
  fornec_cod      INTEGER,
  custo           NUMERIC(18,4) DEFAULT 0,
  dt              DATE,
  compra_cod      INTEGER,             -- the note that created it, if any
  est_mov_cod     INTEGER,             -- and its stock movement
  dth_cri         TIMESTAMP DEFAULT CURRENT_TIMESTAMP,
  CONSTRAINT prod_custo_pk PRIMARY KEY (prod_custo_cod)
);
CREATE INDEX prod_custo_prod ON prod_custo (empr_cod, prod_cod, dt);

-- Changed costs waiting to be picked up by the other screens and the stores:
-- one row per product each time posting changes its cost, with the general
-- cost it then had and the session that changed it.
CREATE TABLE prod_custo_env (
  prod_custo_env_cod  INTEGER NOT NULL,    -- from prod_custo_env_g
  empr_cod            INTEGER,
  prod_cod            INTEGER,
  custo               NUMERIC(18,4) DEFAULT 0,
  sessao              VARCHAR(120),
  dth_cri             TIMESTAMP DEFAULT CURRENT_TIMESTAMP,
  enviado             CHAR(1) DEFAULT 'N',
  CONSTRAINT prod_custo_env_pk PRIMARY KEY (prod_custo_env_cod)
);
CREATE INDEX prod_custo_env_prod ON prod_custo_env (prod_cod, dth_cri);

-- Current sale price per company, price table and product.
CREATE TABLE prod_preco_atual (
  empr_cod       INTEGER NOT NULL,
  tab_preco_cod  INTEGER NOT NULL,
  prod_cod       INTEGER NOT NULL,
  preco          NUMERIC(18,4) DEFAULT 0,
  dt             DATE,
  dth_atu        TIMESTAMP DEFAULT CURRENT_TIMESTAMP,
  CONSTRAINT prod_preco_atual_pk PRIMARY KEY (empr_cod, tab_preco_cod, prod_cod)
);

-- Price history: one row per price created.  Rows left without a product
-- (prod_cod 0 or NULL) are swept away when the notes screen closes.
CREATE TABLE prod_preco (
  prod_preco_cod  INTEGER NOT NULL,    -- from prod_preco_g
  empr_cod        INTEGER,
  tab_preco_cod   INTEGER,
  prod_cod        INTEGER,
  preco           NUMERIC(18,4) DEFAULT 0,
  preco_promo     NUMERIC(18,4) DEFAULT 0,
  dt              DATE,
  enviado         CHAR(1) DEFAULT 'N', -- passed on to the points of sale
  dth_cri         TIMESTAMP DEFAULT CURRENT_TIMESTAMP,
  CONSTRAINT prod_preco_pk PRIMARY KEY (prod_preco_cod)
);
CREATE INDEX prod_preco_prod ON prod_preco (empr_cod, tab_preco_cod, prod_cod, dt);
CREATE INDEX prod_preco_prod_cod ON prod_preco (prod_cod);

-- Promotion prices, valid from dt_ini to dt_fim inclusive.
CREATE TABLE prod_promo (
  empr_cod     INTEGER NOT NULL,
  prod_cod     INTEGER NOT NULL,
  dt_ini       DATE NOT NULL,
  dt_fim       DATE,
  preco_promo  NUMERIC(18,4) DEFAULT 0,
  CONSTRAINT prod_promo_pk PRIMARY KEY (empr_cod, prod_cod, dt_ini)
);

-- ---------------------------------------------------------------------------
-- Notes
-- ---------------------------------------------------------------------------

-- One row per note.  estacao_cod is the workstation the note was created on
-- (its items and movements always use station 10).  tipo_cod is one character
-- whose character code is the document type: 34 purchase entry, 35 return,
-- 36 simple shipment, 37 production, 38 return of leased goods,
-- 39 complementary note, 41 return of lent goods.  Empty reads as 34.
CREATE TABLE compra (
  empr_cod                INTEGER NOT NULL,
  estacao_cod             INTEGER NOT NULL,
  compra_cod              INTEGER NOT NULL,  -- from compra_g
  destin_empr_cod         INTEGER,           -- 0 or NULL: no destination company
  tipo_cod                CHAR(1),
  cancelado               CHAR(1) DEFAULT 'N',
  baixado                 CHAR(1) DEFAULT 'N',
  dt_doc                  DATE,
  dth_sai                 TIMESTAMP,
  dth_cri                 TIMESTAMP DEFAULT CURRENT_TIMESTAMP,
  ndoc                    INTEGER,
  serie                   VARCHAR(5),
  fornec_cod              INTEGER,           -- NULL when no party is chosen
  tot_prods               NUMERIC(18,4) DEFAULT 0,
  ipi                     NUMERIC(18,4) DEFAULT 0,
  frete                   NUMERIC(18,4) DEFAULT 0,
  outras                  NUMERIC(18,4) DEFAULT 0,
  icms                    NUMERIC(18,4) DEFAULT 0,
  fcp                     NUMERIC(18,4) DEFAULT 0,
  fcpst                   NUMERIC(18,4) DEFAULT 0,
  desconto                NUMERIC(18,4) DEFAULT 0,
  tot                     NUMERIC(18,4) DEFAULT 0,
  cfop                    VARCHAR(10),
  nat_op_str              VARCHAR(120),
  -- transport
  frete_modalidade        INTEGER,           -- index of the modality list
  transp_fornec_cod       INTEGER,
  frete_icms_bc_val       NUMERIC(18,4) DEFAULT 0,
  frete_icms_perc         NUMERIC(18,4) DEFAULT 0,
  frete_icms_ret_val      NUMERIC(18,4) DEFAULT 0,
  frete_cfop              VARCHAR(10),
  frete_vols_qtd          NUMERIC(18,4) DEFAULT 0,
  frete_vols_especie      VARCHAR(60),
  frete_vols_marca        VARCHAR(60),
  frete_vols_num          VARCHAR(60),
  frete_vei_placa         VARCHAR(8),
  frete_vei_uf            VARCHAR(2),
  frete_vei_antt          VARCHAR(20),
  frete_reboque1_placa    VARCHAR(8),
  frete_reboque1_uf       VARCHAR(2),
  frete_reboque1_antt     VARCHAR(20),
  frete_reboque2_placa    VARCHAR(8),
  frete_reboque2_uf       VARCHAR(2),
  frete_reboque2_antt     VARCHAR(20),
  frete_peso_liq          NUMERIC(18,4) DEFAULT 0,
  frete_peso_bruto        NUMERIC(18,4) DEFAULT 0,
  -- additional information of the fiscal document
  inf_adic_fisco          VARCHAR(2000),
  inf_adic_contribuinte   VARCHAR(5000),
  -- referenced NF-e access keys
  nfe_chave_ref           VARCHAR(44),
  nfe_chave_ref2          VARCHAR(44),
  nfe_chave_ref3          VARCHAR(44),
  nfe_chave_ref4          VARCHAR(44),
  nfe_chave_ref5          VARCHAR(44),
  -- the NF-e XML of the supplier that the note was imported from, empty when typed
  arq_xml                 BLOB SUB_TYPE TEXT,
  -- the NF-e the company issued for this note
  nfe_num                 INTEGER,
  nfe_chave               VARCHAR(44),
  nfe_protocolo           VARCHAR(60),
  nfe_dth_emiss           TIMESTAMP,
  nfe_justificativa       VARCHAR(255),
  nfe_dth_canc            TIMESTAMP,
  -- further fiscal data carried by the exchange file
  modelo_cod              VARCHAR(2),
  tipo_nf_cod             INTEGER,
  nfe_dv                  INTEGER,
  cfop_ori                VARCHAR(10),
  bc                      NUMERIC(18,4) DEFAULT 0,
  bcst                    NUMERIC(18,4) DEFAULT 0,
  st                      NUMERIC(18,4) DEFAULT 0,
  seg                     NUMERIC(18,4) DEFAULT 0,
  ii                      NUMERIC(18,4) DEFAULT 0,
  pis                     NUMERIC(18,4) DEFAULT 0,
  cofins                  NUMERIC(18,4) DEFAULT 0,
  uf_ibge_cod             VARCHAR(2),
  mun_ibge_cod            VARCHAR(7),
  ind_pag_avista          INTEGER,
  CONSTRAINT compra_pk PRIMARY KEY (empr_cod, estacao_cod, compra_cod)
);
CREATE INDEX compra_dt_doc ON compra (dt_doc);
CREATE INDEX compra_fornec_ndoc ON compra (fornec_cod, ndoc);
CREATE INDEX compra_ndoc ON compra (ndoc);
CREATE INDEX compra_compra_cod ON compra (compra_cod);

-- Staged items of a note, always under station 10, until and after posting.
CREATE TABLE compra_item_tmp (
  empr_cod                   INTEGER NOT NULL,
  estacao_cod                INTEGER NOT NULL,
  compra_cod                 INTEGER NOT NULL,
  compra_item_tmp_cod        INTEGER NOT NULL,  -- from compra_item_tmp_g
  prod_cod_deles             VARCHAR(60),       -- product code of the supplier
  prod_cod                   INTEGER,
  unid_cod                   INTEGER,
  trib_cod                   INTEGER,
  ipi                        NUMERIC(18,4) DEFAULT 0,
  ipi_val                    NUMERIC(18,4) DEFAULT 0,
  outras                     NUMERIC(18,4) DEFAULT 0,
  emb_qtd                    NUMERIC(18,4) DEFAULT 0,  -- units per package
  qtd_embs                   NUMERIC(18,4) DEFAULT 0,  -- number of packages
  custo_tot                  NUMERIC(18,4) DEFAULT 0,
  desconto                   NUMERIC(18,4) DEFAULT 0,
  ordem                      INTEGER,
  prod_descr_fornec          VARCHAR(120),
  pipi                       NUMERIC(18,4) DEFAULT 0,
  vipi                       NUMERIC(18,4) DEFAULT 0,
  frete                      NUMERIC(18,4) DEFAULT 0,
  prod_margem                NUMERIC(18,4) DEFAULT 0,
  preco_novo                 NUMERIC(18,4) DEFAULT 0,
  bar_cod_fornec             VARCHAR(30),
  ncm                        VARCHAR(10),
  tot_entra                  NUMERIC(18,4) DEFAULT 0,
  cfop                       VARCHAR(10),
  trib_icms_cst              INTEGER,
  trib_orig                  INTEGER,
  trib_icms_modbc            INTEGER,
  trib_icms_picms            NUMERIC(18,4) DEFAULT 0,
  trib_icms_vicms            NUMERIC(18,4) DEFAULT 0,
  trib_icms_vbc              NUMERIC(18,4) DEFAULT 0,
  trib_icms_modbcst          INTEGER,
  trib_icms_pmvast           NUMERIC(18,4) DEFAULT 0,
  trib_icms_predbcst         NUMERIC(18,4) DEFAULT 0,
  trib_icms_picmsst          NUMERIC(18,4) DEFAULT 0,
  trib_icms_vbcst            NUMERIC(18,4) DEFAULT 0,
  trib_icms_vicmsst          NUMERIC(18,4) DEFAULT 0,
  seguro                     NUMERIC(18,4) DEFAULT 0,
  icms_perc_red              NUMERIC(18,4) DEFAULT 0,
  trib_icms_predbc           NUMERIC(18,4) DEFAULT 0,
  info_adic                  VARCHAR(2000),
  trib_icms_vbcfcp           NUMERIC(18,4) DEFAULT 0,
  trib_icms_pfcp             NUMERIC(18,4) DEFAULT 0,
  trib_icms_vfcp             NUMERIC(18,4) DEFAULT 0,
  trib_icms_vbcfcpst         NUMERIC(18,4) DEFAULT 0,
  trib_icms_pfcpst           NUMERIC(18,4) DEFAULT 0,
  trib_icms_vfcpst           NUMERIC(18,4) DEFAULT 0,
  trib_icms_vbcstret         NUMERIC(18,4) DEFAULT 0,
  trib_icms_pst              NUMERIC(18,4) DEFAULT 0,
  trib_icms_vicmssubstituto  NUMERIC(18,4) DEFAULT 0,
  trib_icms_vicmsstret       NUMERIC(18,4) DEFAULT 0,
  icms_sn_cred_perc          NUMERIC(18,4) DEFAULT 0,
  icms_sn_cred_val           NUMERIC(18,4) DEFAULT 0,
  cst_pis                    INTEGER,
  ppis                       NUMERIC(18,4) DEFAULT 0,
  vpis                       NUMERIC(18,4) DEFAULT 0,
  cst_cofins                 INTEGER,
  pcofins                    NUMERIC(18,4) DEFAULT 0,
  vcofins                    NUMERIC(18,4) DEFAULT 0,
  CONSTRAINT compra_item_tmp_pk
    PRIMARY KEY (empr_cod, estacao_cod, compra_cod, compra_item_tmp_cod)
);
-- counts and listings by note without a station, edits by item code alone
CREATE INDEX compra_item_tmp_nota ON compra_item_tmp (empr_cod, compra_cod);
CREATE INDEX compra_item_tmp_item ON compra_item_tmp (compra_item_tmp_cod);

-- Staged sale prices of an item, one per price table.  The item code alone
-- identifies the item, so the note code is not part of the key.
CREATE TABLE compra_item_tmp_precos (
  empr_cod             INTEGER NOT NULL,
  estacao_cod          INTEGER NOT NULL,
  compra_item_tmp_cod  INTEGER NOT NULL,
  tab_preco_cod        INTEGER NOT NULL,
  preco                NUMERIC(18,4) DEFAULT 0,
  CONSTRAINT compra_item_tmp_precos_pk
    PRIMARY KEY (empr_cod, estacao_cod, compra_item_tmp_cod, tab_preco_cod)
);

-- Link from a note to the stock movements its posting created.
CREATE TABLE compra_est_mov (
  empr_cod             INTEGER NOT NULL,
  estacao_cod          INTEGER NOT NULL,
  compra_cod           INTEGER NOT NULL,
  est_mov_empr_cod     INTEGER NOT NULL,
  est_mov_estacao_cod  INTEGER NOT NULL,
  est_mov_cod          INTEGER NOT NULL,
  CONSTRAINT compra_est_mov_pk PRIMARY KEY
    (empr_cod, estacao_cod, compra_cod, est_mov_empr_cod, est_mov_estacao_cod, est_mov_cod)
);
CREATE INDEX compra_est_mov_mov ON compra_est_mov (est_mov_empr_cod, est_mov_estacao_cod, est_mov_cod);
CREATE INDEX compra_est_mov_compra_cod ON compra_est_mov (compra_cod);

-- Entries that sending a posted note made in the stock of its destination
-- company, each with the movement of the note it copies.  Unposting the note
-- takes them back too.
CREATE TABLE compra_est_mov_env (
  empr_cod             INTEGER NOT NULL,
  estacao_cod          INTEGER NOT NULL,
  compra_cod           INTEGER NOT NULL,
  est_mov_empr_cod     INTEGER NOT NULL,
  est_mov_estacao_cod  INTEGER NOT NULL,
  est_mov_cod          INTEGER NOT NULL,
  orig_est_mov_cod     INTEGER,
  CONSTRAINT compra_est_mov_env_pk PRIMARY KEY (est_mov_empr_cod, est_mov_estacao_cod, est_mov_cod)
);
CREATE INDEX compra_est_mov_env_nota ON compra_est_mov_env (empr_cod, compra_cod);

-- Correction letters (CC-e) issued for the NF-e of a note.
CREATE TABLE nfe_corr (
  empr_cod       INTEGER NOT NULL,
  nfe_corr_cod   INTEGER NOT NULL,  -- from nfe_corr_g
  estacao_cod    INTEGER,
  compra_cod     INTEGER,
  doc_tipo       INTEGER,           -- host document kind of the note
  descr          VARCHAR(120),
  nfe_chave      VARCHAR(44),
  seq            INTEGER,           -- event sequence within the NF-e
  texto          VARCHAR(1000),
  protocolo      VARCHAR(60),
  dth_cri        TIMESTAMP DEFAULT CURRENT_TIMESTAMP,
  dth_env        TIMESTAMP,
  CONSTRAINT nfe_corr_pk PRIMARY KEY (empr_cod, nfe_corr_cod)
);
CREATE INDEX nfe_corr_compra ON nfe_corr (empr_cod, estacao_cod, compra_cod);

-- ---------------------------------------------------------------------------
-- Stock movements (written by posting, read back by the tax screens and the
-- exchange file)
-- ---------------------------------------------------------------------------

-- One row per movement.  qtd is signed (exits are negative).  The columns from
-- trib_icms_cst onwards keep the NF-e tax group of the item exactly as staged.
CREATE TABLE est_mov (
  empr_cod                   INTEGER NOT NULL,
  estacao_cod                INTEGER NOT NULL,
  est_mov_cod                INTEGER NOT NULL,  -- from est_mov_g
  tipo                       VARCHAR(2),
  prod_cod                   INTEGER,
  prod_tipo_cod              CHAR(1),
  nitem                      INTEGER,           -- line number within its note
  qtd                        NUMERIC(18,4) DEFAULT 0,
  custo_tot                  NUMERIC(18,4) DEFAULT 0,
  custo                      NUMERIC(18,4) DEFAULT 0,
  preco_unit                 NUMERIC(18,4) DEFAULT 0,
  desconto                   NUMERIC(18,4) DEFAULT 0,
  cancelado                  CHAR(1) DEFAULT 'N',
  dth_cri                    TIMESTAMP DEFAULT CURRENT_TIMESTAMP,
  tipo_jan                   INTEGER,
  qtd_pecas                  NUMERIC(18,4) DEFAULT 0,
  altura                     NUMERIC(18,4) DEFAULT 0,
  largura                    NUMERIC(18,4) DEFAULT 0,
  comprimento                NUMERIC(18,4) DEFAULT 0,
  qtd_visivel                CHAR(1) DEFAULT 'N',
  altura_visivel             CHAR(1) DEFAULT 'N',
  largura_visivel            CHAR(1) DEFAULT 'N',
  comprimento_visivel        CHAR(1) DEFAULT 'N',
  trat_icms                  INTEGER,
  origem_merc                INTEGER,
  icms_bc_mod                INTEGER,
  icms_st_bc_mod             INTEGER,
  icms_st_perc_ad            NUMERIC(18,4) DEFAULT 0,
  icms_st_perc_red           NUMERIC(18,4) DEFAULT 0,
  trib_st_perc               NUMERIC(18,4) DEFAULT 0,
  icms_bc_perc_red           NUMERIC(18,4) DEFAULT 0,
  icms_bc_perc_op_prop       NUMERIC(18,4) DEFAULT 0,
  icms_bc_val                NUMERIC(18,4) DEFAULT 0,
  icms_val                   NUMERIC(18,4) DEFAULT 0,
  icms_st_bc_val             NUMERIC(18,4) DEFAULT 0,
  icms_st_val                NUMERIC(18,4) DEFAULT 0,
  icms_st_val_ret            NUMERIC(18,4) DEFAULT 0,
  icms_st_bc_val_dest        NUMERIC(18,4) DEFAULT 0,
  icms_st_val_dest           NUMERIC(18,4) DEFAULT 0,
  icms_sn_cred_val           NUMERIC(18,4) DEFAULT 0,
  trib_cod                   INTEGER,
  trib_perc                  NUMERIC(18,4) DEFAULT 0,
  icms_mot_deso              INTEGER,
  icms_partilha              CHAR(1) DEFAULT 'N',
  icms_csosn                 INTEGER,
  icms_sn_cred_perc          NUMERIC(18,4) DEFAULT 0,
  icms_st_uf                 VARCHAR(2),
  participa                  CHAR(1) DEFAULT 'S',
  preco_unit_orig            NUMERIC(18,4) DEFAULT 0,
  benef_tem                  CHAR(1) DEFAULT 'N',
  benef_perc                 NUMERIC(18,4) DEFAULT 0,
  preco_unit_dif_benef       NUMERIC(18,4) DEFAULT 0,
  dth_atu                    TIMESTAMP,
  import_dth                 TIMESTAMP,
  import_status              INTEGER,
  preco_atual                NUMERIC(18,4) DEFAULT 0,
  preco_promo                NUMERIC(18,4) DEFAULT 0,
  cfop                       VARCHAR(10),
  info_adic                  VARCHAR(2000),
  -- ICMS due to the destination state (DIFAL) and its FCP share
  trib_icms_vbcufdest        NUMERIC(18,4) DEFAULT 0,
  trib_icms_pfcpufdest       NUMERIC(18,4) DEFAULT 0,
  trib_icms_picmsufdest      NUMERIC(18,4) DEFAULT 0,
  trib_icms_picmsinter       NUMERIC(18,4) DEFAULT 0,
  trib_icms_picmsinterpart   NUMERIC(18,4) DEFAULT 0,
  trib_icms_vfcpufdest       NUMERIC(18,4) DEFAULT 0,
  trib_icms_vicmsufdest      NUMERIC(18,4) DEFAULT 0,
  trib_icms_vicmsufremet     NUMERIC(18,4) DEFAULT 0,
  -- the tax group of the item as staged
  trib_icms_cst              INTEGER,
  trib_orig                  INTEGER,
  trib_icms_modbc            INTEGER,
  trib_icms_modbcst          INTEGER,
  trib_icms_picms            NUMERIC(18,4) DEFAULT 0,
  trib_icms_vicms            NUMERIC(18,4) DEFAULT 0,
  trib_icms_vbc              NUMERIC(18,4) DEFAULT 0,
  trib_icms_pmvast           NUMERIC(18,4) DEFAULT 0,
  trib_icms_predbcst         NUMERIC(18,4) DEFAULT 0,
  trib_icms_predbc           NUMERIC(18,4) DEFAULT 0,
  trib_icms_picmsst          NUMERIC(18,4) DEFAULT 0,
  trib_icms_vbcst            NUMERIC(18,4) DEFAULT 0,
  trib_icms_vicmsst          NUMERIC(18,4) DEFAULT 0,
  pipi                       NUMERIC(18,4) DEFAULT 0,
  vipi                       NUMERIC(18,4) DEFAULT 0,
  outras                     NUMERIC(18,4) DEFAULT 0,
  frete                      NUMERIC(18,4) DEFAULT 0,
  seguro                     NUMERIC(18,4) DEFAULT 0,
  trib_icms_vbcfcp           NUMERIC(18,4) DEFAULT 0,
  trib_icms_pfcp             NUMERIC(18,4) DEFAULT 0,
  trib_icms_vfcp             NUMERIC(18,4) DEFAULT 0,
  trib_icms_vbcfcpst         NUMERIC(18,4) DEFAULT 0,
  trib_icms_pfcpst           NUMERIC(18,4) DEFAULT 0,
  trib_icms_vfcpst           NUMERIC(18,4) DEFAULT 0,
  trib_icms_vbcstret         NUMERIC(18,4) DEFAULT 0,
  trib_icms_pst              NUMERIC(18,4) DEFAULT 0,
  trib_icms_vicmssubstituto  NUMERIC(18,4) DEFAULT 0,
  trib_icms_vicmsstret       NUMERIC(18,4) DEFAULT 0,
  cst_pis                    INTEGER,
  ppis                       NUMERIC(18,4) DEFAULT 0,
  vpis                       NUMERIC(18,4) DEFAULT 0,
  cst_cofins                 INTEGER,
  pcofins                    NUMERIC(18,4) DEFAULT 0,
  vcofins                    NUMERIC(18,4) DEFAULT 0,
  CONSTRAINT est_mov_pk PRIMARY KEY (empr_cod, estacao_cod, est_mov_cod)
);
CREATE INDEX est_mov_prod ON est_mov (prod_cod, dth_cri);

-- Inputs consumed by a posted movement of a composed product.  The company is
-- one running the posting, which may differ from that of the note.
CREATE TABLE est_mov_compo (
  empr_cod           INTEGER NOT NULL,
  est_mov_cod        INTEGER NOT NULL,
  est_mov_compo_cod  INTEGER NOT NULL,  -- from est_mov_compo_g
  prod_cod_filho     INTEGER,
  qtd                NUMERIC(18,4) DEFAULT 0,
  CONSTRAINT est_mov_compo_pk PRIMARY KEY (empr_cod, est_mov_cod, est_mov_compo_cod)
);
CREATE INDEX est_mov_compo_filho ON est_mov_compo (prod_cod_filho);
-- unposting finds the inputs by movement alone
CREATE INDEX est_mov_compo_mov ON est_mov_compo (est_mov_cod);

-- Stock on hand per company and product: entries (tipo E) and exits (tipo S,
-- stored negative) summed; cancelled movements and complementary notes
-- (tipo C, no goods move) left out.
CREATE VIEW est_saldo (empr_cod, prod_cod, qtd) AS SELECT empr_cod, prod_cod, SUM(qtd) FROM est_mov WHERE COALESCE(cancelado, 'N') <> 'S' AND tipo IN ('E', 'S') GROUP BY empr_cod, prod_cod;
