-- Demo store: two companies, their suppliers and products, and a few notes
-- of the last two months.  Loaded once, right after the schema, into a new
-- database.

-- ---------------------------------------------------------------------------
-- Companies, parties and settings
-- ---------------------------------------------------------------------------

INSERT INTO empr (
  empr_cod, raz, nome_red, cnpj, ie, logr, num, compl, bai, mun, mun_ibge_cod, uf, cep, fone1,
  fone2, email, crt, cnae, im
) VALUES (
  1, 'Mercado Bom Preço Ltda', 'BOM PRECO CAMPINAS', '24587136000108', '244378126014',
  'Rua Barão de Jaguara', '1120', 'Loja 1', 'Centro', 'Campinas', '3509502', 'SP', '13015002',
  '1932314455', '19991204410', 'fiscal@bompreco.com.br', 3, '4711302', '102938475'
);
INSERT INTO empr (
  empr_cod, raz, nome_red, cnpj, ie, logr, num, compl, bai, mun, mun_ibge_cod, uf, cep, fone1,
  fone2, email, crt, cnae, im
) VALUES (
  2, 'Empório Triângulo Comércio de Alimentos Ltda', 'EMPORIO TRIANGULO', '31650942000149',
  '7023184590063', 'Avenida Afonso Pena', '455', NULL, 'Centro', 'Uberlândia', '3170206', 'MG',
  '38400128', '3432197700', NULL, 'contato@emporiotriangulo.com.br', 1, '4729699', NULL
);

-- Suppliers in SP and PR, a transporter, and the store itself as the party of
-- its own production notes.
INSERT INTO fornec (
  fornec_cod, nome_red, raz, c, ie, logr, num, compl, bai, mun, mun_ibge_cod, uf, cep, fone,
  email, transp
) VALUES (
  1, 'DIST PAULISTA', 'Distribuidora Paulista de Alimentos Ltda', '11654298000170',
  '116542981116', 'Rua Santa Rosa', '210', NULL, 'Brás', 'São Paulo', '3550308', 'SP', '03007000',
  '1132275100', 'vendas@distpaulista.com.br', 'N'
);
INSERT INTO fornec (
  fornec_cod, nome_red, raz, c, ie, logr, num, compl, bai, mun, mun_ibge_cod, uf, cep, fone,
  email, transp
) VALUES (
  2, 'VALE VERDE', 'Laticínios Vale Verde Ltda', '33810274000103', '582144033132',
  'Avenida Presidente Vargas', '2300', 'Galpão 4', 'Jardim América', 'Ribeirão Preto', '3543402',
  'SP', '14020260', '1636101800', 'comercial@valeverde.ind.br', 'N'
);
INSERT INTO fornec (
  fornec_cod, nome_red, raz, c, ie, logr, num, compl, bai, mun, mun_ibge_cod, uf, cep, fone,
  email, transp
) VALUES (
  3, 'MOINHO PARANA', 'Moinho Paraná Indústria de Farinhas Ltda', '07736195000181', '9036117238',
  'Rodovia BR-376', '502', 'Km 502', 'Distrito Industrial', 'Ponta Grossa', '4119905', 'PR',
  '84043450', '4232198800', 'nfe@moinhoparana.com.br', 'N'
);
INSERT INTO fornec (
  fornec_cod, nome_red, raz, c, ie, logr, num, compl, bai, mun, mun_ibge_cod, uf, cep, fone,
  email, transp
) VALUES (
  4, 'CONF ARAUCARIA', 'Confecções Araucária Ltda', '19204866000142', '9051463860',
  'Rua Mateus Leme', '1800', NULL, 'Centro Cívico', 'Curitiba', '4106902', 'PR', '80530010',
  '4130246600', 'pedidos@araucariaconf.com.br', 'N'
);
INSERT INTO fornec (
  fornec_cod, nome_red, raz, c, ie, logr, num, compl, bai, mun, mun_ibge_cod, uf, cep, fone,
  email, transp
) VALUES (
  5, 'RODOVIA SUL', 'Transportadora Rodovia Sul Ltda', '28159347000109', '9072214584',
  'Avenida Tiradentes', '3500', NULL, 'Jardim Shangri-lá', 'Londrina', '4113700', 'PR',
  '86072000', '4333421200', 'coleta@rodoviasul.com.br', 'S'
);
INSERT INTO fornec (
  fornec_cod, nome_red, raz, c, ie, logr, num, compl, bai, mun, mun_ibge_cod, uf, cep, fone,
  email, transp
) VALUES (
  6, 'PRODUCAO PROPRIA', 'Mercado Bom Preço Ltda', '24587136000108', '244378126014',
  'Rua Barão de Jaguara', '1120', 'Loja 1', 'Centro', 'Campinas', '3509502', 'SP', '13015002',
  '1932314455', 'fiscal@bompreco.com.br', 'N'
);

-- Costs of a purchase leave out the recoverable ICMS (mode 2) and take in the IPI
-- (mode 1).
INSERT INTO config (chave, valor) VALUES ('REP_PRODUC_CUSTO_EXIGE', 'S');
INSERT INTO config (chave, valor) VALUES ('REP_IPI_SOMAR', 'S');
INSERT INTO config (chave, valor) VALUES ('REP_PRODUC_CUSTO_CRIA', 'N');
INSERT INTO config (chave, valor) VALUES ('EST_CUS_ICMS_MODO', '2');
INSERT INTO config (chave, valor) VALUES ('EST_CUS_IPI_MODO', '1');
INSERT INTO config (chave, valor) VALUES ('REP_ROM_ORD_IMPR', 'S');
-- NF-e in homologation, with the informative 2026 rates of CBS and IBS.
INSERT INTO config (chave, valor) VALUES ('NFE_AMBIENTE', '2');
INSERT INTO config (chave, valor) VALUES ('NFE_ALIQ_CBS', '0.9');
INSERT INTO config (chave, valor) VALUES ('NFE_ALIQ_IBS_UF', '0.1');
INSERT INTO config (chave, valor) VALUES ('NFE_ALIQ_IBS_MUN', '0');
-- The last NF-e number of company 1, series 1: the return note's.
INSERT INTO nfe_numero (empr_cod, serie, ultimo) VALUES (1, 1, 1532);

INSERT INTO fisco_config (fisco_config_cod, inf_adic_fisco, inf_adic_contribuinte) VALUES (1, 'Empresa optante pelo regime normal de apuracao do ICMS.', 'Duvidas sobre esta nota: (19) 3231-4455 ou fiscal@bompreco.com.br');

-- ---------------------------------------------------------------------------
-- Product registers
-- ---------------------------------------------------------------------------

INSERT INTO unid (unid_cod, sigla, descr) VALUES (1, 'UN', 'UNIDADE');
INSERT INTO unid (unid_cod, sigla, descr) VALUES (2, 'CX', 'CAIXA');
INSERT INTO unid (unid_cod, sigla, descr) VALUES (3, 'KG', 'QUILOGRAMA');
INSERT INTO unid (unid_cod, sigla, descr) VALUES (4, 'PC', 'PECA');
INSERT INTO unid (unid_cod, sigla, descr) VALUES (5, 'FD', 'FARDO');
INSERT INTO unid (unid_cod, sigla, descr) VALUES (6, 'LT', 'LITRO');
INSERT INTO unid (unid_cod, sigla, descr) VALUES (7, 'PCT', 'PACOTE');
INSERT INTO unid (unid_cod, sigla, descr) VALUES (8, 'DZ', 'DUZIA');

INSERT INTO trib (trib_cod, descr, perc) VALUES (1, 'ISENTA', 0);
INSERT INTO trib (trib_cod, descr, perc) VALUES (2, 'TRIBUTADA CESTA BASICA', 7);
INSERT INTO trib (trib_cod, descr, perc) VALUES (3, 'TRIBUTADA INTERESTADUAL', 12);
INSERT INTO trib (trib_cod, descr, perc) VALUES (4, 'TRIBUTADA 17,5', 17.5);
INSERT INTO trib (trib_cod, descr, perc) VALUES (5, 'TRIBUTADA INTEGRAL', 18);
INSERT INTO trib (trib_cod, descr, perc) VALUES (6, 'SUBSTITUICAO TRIBUTARIA', 0);

-- Wholesale and promotion prices follow the retail price by perc %.
INSERT INTO tab_preco (tab_preco_cod, nome, perc) VALUES (1, 'VAREJO', 0);
INSERT INTO tab_preco (tab_preco_cod, nome, perc) VALUES (2, 'ATACADO', -10);
INSERT INTO tab_preco (tab_preco_cod, nome, perc) VALUES (3, 'PROMOCAO', -15);

INSERT INTO prod_fabr (prod_fabr_cod, nome) VALUES (1, 'PRODUCAO PROPRIA');
INSERT INTO prod_fabr (prod_fabr_cod, nome) VALUES (2, 'TIO JOCA ALIMENTOS');
INSERT INTO prod_fabr (prod_fabr_cod, nome) VALUES (3, 'LATICINIOS VALE VERDE');
INSERT INTO prod_fabr (prod_fabr_cod, nome) VALUES (4, 'MOINHO PARANA');
INSERT INTO prod_fabr (prod_fabr_cod, nome) VALUES (5, 'CAFE SERRA ALTA');
INSERT INTO prod_fabr (prod_fabr_cod, nome) VALUES (6, 'ARAUCARIA CONFECCOES');
INSERT INTO prod_fabr (prod_fabr_cod, nome) VALUES (7, 'LIMPA BEM QUIMICA');
INSERT INTO prod_fabr (prod_fabr_cod, nome) VALUES (8, 'REFRI BRASIL BEBIDAS');
INSERT INTO prod_fabr (prod_fabr_cod, nome) VALUES (9, 'GRANJA BOA VISTA');

-- Products 10 and 11 are made in the bakery (kind 37, the percent sign) from
-- the inputs listed in prod_compo.
INSERT INTO prod (prod_cod, descr, unid_cod, emb_qtd, trib_cod, ipi, ncm, gtin, prod_fabr_cod, cfop, prod_tipo_cod) VALUES (1, 'ARROZ BRANCO TIPO 1 TIO JOCA 5KG', 7, 6, 2, 0, '10063021', '7899901000010', 2, '5102', NULL);
INSERT INTO prod (prod_cod, descr, unid_cod, emb_qtd, trib_cod, ipi, ncm, gtin, prod_fabr_cod, cfop, prod_tipo_cod) VALUES (2, 'FEIJAO CARIOCA TIO JOCA 1KG', 7, 10, 2, 0, '07133319', '7899901000027', 2, '5102', NULL);
INSERT INTO prod (prod_cod, descr, unid_cod, emb_qtd, trib_cod, ipi, ncm, gtin, prod_fabr_cod, cfop, prod_tipo_cod) VALUES (3, 'FARINHA DE TRIGO MOINHO PARANA 1KG', 3, 10, 2, 0, '11010010', '7899901000034', 4, '5102', NULL);
INSERT INTO prod (prod_cod, descr, unid_cod, emb_qtd, trib_cod, ipi, ncm, gtin, prod_fabr_cod, cfop, prod_tipo_cod) VALUES (4, 'ACUCAR REFINADO TIO JOCA 1KG', 7, 10, 2, 0, '17019900', '7899901000041', 2, '5102', NULL);
INSERT INTO prod (prod_cod, descr, unid_cod, emb_qtd, trib_cod, ipi, ncm, gtin, prod_fabr_cod, cfop, prod_tipo_cod) VALUES (5, 'CAFE TORRADO E MOIDO SERRA ALTA 500G', 7, 10, 5, 0, '09012100', '7899901000058', 5, '5102', NULL);
INSERT INTO prod (prod_cod, descr, unid_cod, emb_qtd, trib_cod, ipi, ncm, gtin, prod_fabr_cod, cfop, prod_tipo_cod) VALUES (6, 'LEITE UHT INTEGRAL VALE VERDE 1L', 1, 12, 2, 0, '04012010', '7899901000065', 3, '5102', NULL);
INSERT INTO prod (prod_cod, descr, unid_cod, emb_qtd, trib_cod, ipi, ncm, gtin, prod_fabr_cod, cfop, prod_tipo_cod) VALUES (7, 'MANTEIGA COM SAL VALE VERDE 200G', 1, 24, 5, 0, '04051000', '7899901000072', 3, '5102', NULL);
INSERT INTO prod (prod_cod, descr, unid_cod, emb_qtd, trib_cod, ipi, ncm, gtin, prod_fabr_cod, cfop, prod_tipo_cod) VALUES (8, 'FERMENTO BIOLOGICO SECO 500G', 7, 10, 5, 0, '21021090', '7899901000089', 4, '5102', NULL);
INSERT INTO prod (prod_cod, descr, unid_cod, emb_qtd, trib_cod, ipi, ncm, gtin, prod_fabr_cod, cfop, prod_tipo_cod) VALUES (9, 'OVOS BRANCOS GRANJA BOA VISTA', 8, 30, 1, 0, '04072100', '7899901000096', 9, '5102', NULL);
INSERT INTO prod (prod_cod, descr, unid_cod, emb_qtd, trib_cod, ipi, ncm, gtin, prod_fabr_cod, cfop, prod_tipo_cod) VALUES (10, 'PAO FRANCES', 3, 1, 2, 0, '19059090', NULL, 1, '5101', '%');
INSERT INTO prod (prod_cod, descr, unid_cod, emb_qtd, trib_cod, ipi, ncm, gtin, prod_fabr_cod, cfop, prod_tipo_cod) VALUES (11, 'BOLO DE CENOURA COM COBERTURA DE CHOCOLATE', 1, 1, 5, 0, '19059090', NULL, 1, '5101', '%');
INSERT INTO prod (prod_cod, descr, unid_cod, emb_qtd, trib_cod, ipi, ncm, gtin, prod_fabr_cod, cfop, prod_tipo_cod) VALUES (12, 'DETERGENTE LIQUIDO NEUTRO LIMPA BEM 500ML', 1, 24, 5, 0, '34022000', '7899901000126', 7, '5102', NULL);
INSERT INTO prod (prod_cod, descr, unid_cod, emb_qtd, trib_cod, ipi, ncm, gtin, prod_fabr_cod, cfop, prod_tipo_cod) VALUES (13, 'SABAO EM PO LIMPA BEM 1KG', 1, 20, 5, 0, '34022000', '7899901000133', 7, '5102', NULL);
INSERT INTO prod (prod_cod, descr, unid_cod, emb_qtd, trib_cod, ipi, ncm, gtin, prod_fabr_cod, cfop, prod_tipo_cod) VALUES (14, 'REFRIGERANTE COLA REFRI BRASIL 2L', 1, 6, 6, 4, '22021000', '7899901000140', 8, '5405', NULL);
INSERT INTO prod (prod_cod, descr, unid_cod, emb_qtd, trib_cod, ipi, ncm, gtin, prod_fabr_cod, cfop, prod_tipo_cod) VALUES (15, 'CAMISETA BASICA ALGODAO', 4, 1, 5, 0, '61091000', '7899901000157', 6, '5102', NULL);
INSERT INTO prod (prod_cod, descr, unid_cod, emb_qtd, trib_cod, ipi, ncm, gtin, prod_fabr_cod, cfop, prod_tipo_cod) VALUES (16, 'BERMUDA JEANS MASCULINA', 4, 1, 5, 0, '62034200', '7899901000164', 6, '5102', NULL);

-- The second company does not sell the jeans.
INSERT INTO prod_compl (prod_cod, empr_cod, margem, ativo) VALUES (1, 1, 25, 'S');
INSERT INTO prod_compl (prod_cod, empr_cod, margem, ativo) VALUES (2, 1, 30, 'S');
INSERT INTO prod_compl (prod_cod, empr_cod, margem, ativo) VALUES (3, 1, 30, 'S');
INSERT INTO prod_compl (prod_cod, empr_cod, margem, ativo) VALUES (4, 1, 30, 'S');
INSERT INTO prod_compl (prod_cod, empr_cod, margem, ativo) VALUES (5, 1, 35, 'S');
INSERT INTO prod_compl (prod_cod, empr_cod, margem, ativo) VALUES (6, 1, 25, 'S');
INSERT INTO prod_compl (prod_cod, empr_cod, margem, ativo) VALUES (7, 1, 35, 'S');
INSERT INTO prod_compl (prod_cod, empr_cod, margem, ativo) VALUES (8, 1, 30, 'S');
INSERT INTO prod_compl (prod_cod, empr_cod, margem, ativo) VALUES (9, 1, 30, 'S');
INSERT INTO prod_compl (prod_cod, empr_cod, margem, ativo) VALUES (10, 1, 120, 'S');
INSERT INTO prod_compl (prod_cod, empr_cod, margem, ativo) VALUES (11, 1, 100, 'S');
INSERT INTO prod_compl (prod_cod, empr_cod, margem, ativo) VALUES (12, 1, 45, 'S');
INSERT INTO prod_compl (prod_cod, empr_cod, margem, ativo) VALUES (13, 1, 40, 'S');
INSERT INTO prod_compl (prod_cod, empr_cod, margem, ativo) VALUES (14, 1, 35, 'S');
INSERT INTO prod_compl (prod_cod, empr_cod, margem, ativo) VALUES (15, 1, 80, 'S');
INSERT INTO prod_compl (prod_cod, empr_cod, margem, ativo) VALUES (16, 1, 80, 'S');
INSERT INTO prod_compl (prod_cod, empr_cod, margem, ativo) VALUES (1, 2, 25, 'S');
INSERT INTO prod_compl (prod_cod, empr_cod, margem, ativo) VALUES (2, 2, 30, 'S');
INSERT INTO prod_compl (prod_cod, empr_cod, margem, ativo) VALUES (3, 2, 30, 'S');
INSERT INTO prod_compl (prod_cod, empr_cod, margem, ativo) VALUES (4, 2, 30, 'S');
INSERT INTO prod_compl (prod_cod, empr_cod, margem, ativo) VALUES (5, 2, 35, 'S');
INSERT INTO prod_compl (prod_cod, empr_cod, margem, ativo) VALUES (6, 2, 25, 'S');
INSERT INTO prod_compl (prod_cod, empr_cod, margem, ativo) VALUES (7, 2, 35, 'S');
INSERT INTO prod_compl (prod_cod, empr_cod, margem, ativo) VALUES (8, 2, 30, 'S');
INSERT INTO prod_compl (prod_cod, empr_cod, margem, ativo) VALUES (9, 2, 30, 'S');
INSERT INTO prod_compl (prod_cod, empr_cod, margem, ativo) VALUES (10, 2, 120, 'S');
INSERT INTO prod_compl (prod_cod, empr_cod, margem, ativo) VALUES (11, 2, 100, 'S');
INSERT INTO prod_compl (prod_cod, empr_cod, margem, ativo) VALUES (12, 2, 45, 'S');
INSERT INTO prod_compl (prod_cod, empr_cod, margem, ativo) VALUES (13, 2, 40, 'S');
INSERT INTO prod_compl (prod_cod, empr_cod, margem, ativo) VALUES (14, 2, 35, 'S');
INSERT INTO prod_compl (prod_cod, empr_cod, margem, ativo) VALUES (15, 2, 80, 'S');
INSERT INTO prod_compl (prod_cod, empr_cod, margem, ativo) VALUES (16, 2, 80, 'N');

-- Bar codes besides the GTIN: case codes (GTIN-14), in-store codes of the
-- bakery and an older label of the coffee.
INSERT INTO prod_barras (bar_cod, prod_cod) VALUES ('17899901000017', 1);
INSERT INTO prod_barras (bar_cod, prod_cod) VALUES ('17899901000062', 6);
INSERT INTO prod_barras (bar_cod, prod_cod) VALUES ('17899901000147', 14);
INSERT INTO prod_barras (bar_cod, prod_cod) VALUES ('2000000000107', 10);
INSERT INTO prod_barras (bar_cod, prod_cod) VALUES ('2000000000114', 11);
INSERT INTO prod_barras (bar_cod, prod_cod) VALUES ('7895555000123', 5);

INSERT INTO prod_norig (norig, prod_cod, fornec_cod) VALUES ('TJ-ARZ5', 1, 1);
INSERT INTO prod_norig (norig, prod_cod, fornec_cod) VALUES ('TJ-FJC1', 2, 1);
INSERT INTO prod_norig (norig, prod_cod, fornec_cod) VALUES ('TJ-ACR1', 4, 1);
INSERT INTO prod_norig (norig, prod_cod, fornec_cod) VALUES ('SA-500', 5, 1);
INSERT INTO prod_norig (norig, prod_cod, fornec_cod) VALUES ('8812', 12, 1);
INSERT INTO prod_norig (norig, prod_cod, fornec_cod) VALUES ('RB-COLA2', 14, 1);
INSERT INTO prod_norig (norig, prod_cod, fornec_cod) VALUES ('1001', 6, 2);
INSERT INTO prod_norig (norig, prod_cod, fornec_cod) VALUES ('2040', 7, 2);
INSERT INTO prod_norig (norig, prod_cod, fornec_cod) VALUES ('310', 3, 3);
INSERT INTO prod_norig (norig, prod_cod, fornec_cod) VALUES ('455', 8, 3);
INSERT INTO prod_norig (norig, prod_cod, fornec_cod) VALUES ('CAM-BAS-01', 15, 4);
INSERT INTO prod_norig (norig, prod_cod, fornec_cod) VALUES ('BER-JNS-02', 16, 4);

-- Grades: item 0 of each title is the entry for no variant.
INSERT INTO grade_tit (grade_tit_cod, descr) VALUES (1, 'TAMANHO');
INSERT INTO grade_tit (grade_tit_cod, descr) VALUES (2, 'COR');
INSERT INTO grade_tit (grade_tit_cod, descr) VALUES (3, 'NUMERACAO');
INSERT INTO grade_item (grade_tit_cod, grade_item_cod, grade_item_descr) VALUES (1, 0, '');
INSERT INTO grade_item (grade_tit_cod, grade_item_cod, grade_item_descr) VALUES (1, 1, 'P');
INSERT INTO grade_item (grade_tit_cod, grade_item_cod, grade_item_descr) VALUES (1, 2, 'M');
INSERT INTO grade_item (grade_tit_cod, grade_item_cod, grade_item_descr) VALUES (1, 3, 'G');
INSERT INTO grade_item (grade_tit_cod, grade_item_cod, grade_item_descr) VALUES (1, 4, 'GG');
INSERT INTO grade_item (grade_tit_cod, grade_item_cod, grade_item_descr) VALUES (2, 0, '');
INSERT INTO grade_item (grade_tit_cod, grade_item_cod, grade_item_descr) VALUES (2, 1, 'BRANCA');
INSERT INTO grade_item (grade_tit_cod, grade_item_cod, grade_item_descr) VALUES (2, 2, 'PRETA');
INSERT INTO grade_item (grade_tit_cod, grade_item_cod, grade_item_descr) VALUES (2, 3, 'AZUL MARINHO');
INSERT INTO grade_item (grade_tit_cod, grade_item_cod, grade_item_descr) VALUES (2, 4, 'CINZA MESCLA');
INSERT INTO grade_item (grade_tit_cod, grade_item_cod, grade_item_descr) VALUES (3, 0, '');
INSERT INTO grade_item (grade_tit_cod, grade_item_cod, grade_item_descr) VALUES (3, 1, '38');
INSERT INTO grade_item (grade_tit_cod, grade_item_cod, grade_item_descr) VALUES (3, 2, '40');
INSERT INTO grade_item (grade_tit_cod, grade_item_cod, grade_item_descr) VALUES (3, 3, '42');
INSERT INTO grade_item (grade_tit_cod, grade_item_cod, grade_item_descr) VALUES (3, 4, '44');
INSERT INTO grade_item (grade_tit_cod, grade_item_cod, grade_item_descr) VALUES (3, 5, '46');
INSERT INTO prod_grade (prod_cod, grade_tit_cod) VALUES (15, 1);
INSERT INTO prod_grade (prod_cod, grade_tit_cod) VALUES (15, 2);
INSERT INTO prod_grade (prod_cod, grade_tit_cod) VALUES (16, 3);
INSERT INTO prod_grade (prod_cod, grade_tit_cod) VALUES (16, 2);

-- French bread (per kg) and carrot cake (per unit).
INSERT INTO prod_compo (prod_cod_pai, prod_cod_filho, qtd) VALUES (10, 3, 0.65);
INSERT INTO prod_compo (prod_cod_pai, prod_cod_filho, qtd) VALUES (10, 8, 0.02);
INSERT INTO prod_compo (prod_cod_pai, prod_cod_filho, qtd) VALUES (10, 4, 0.02);
INSERT INTO prod_compo (prod_cod_pai, prod_cod_filho, qtd) VALUES (11, 3, 0.3);
INSERT INTO prod_compo (prod_cod_pai, prod_cod_filho, qtd) VALUES (11, 4, 0.25);
INSERT INTO prod_compo (prod_cod_pai, prod_cod_filho, qtd) VALUES (11, 9, 0.25);
INSERT INTO prod_compo (prod_cod_pai, prod_cod_filho, qtd) VALUES (11, 6, 0.2);
INSERT INTO prod_compo (prod_cod_pai, prod_cod_filho, qtd) VALUES (11, 7, 0.5);

-- ---------------------------------------------------------------------------
-- Costs and prices
-- ---------------------------------------------------------------------------

-- General costs (fornec_cod 0) of both companies, and the last costs from the
-- mill, recorded when note 2 was posted.
INSERT INTO prod_custo_atual (empr_cod, prod_cod, fornec_cod, custo, dt) VALUES (1, 1, 0, 22.90, '2026-09-01');
INSERT INTO prod_custo_atual (empr_cod, prod_cod, fornec_cod, custo, dt) VALUES (1, 2, 0, 7.40, '2026-09-01');
INSERT INTO prod_custo_atual (empr_cod, prod_cod, fornec_cod, custo, dt) VALUES (1, 3, 0, 4.10, '2026-10-21');
INSERT INTO prod_custo_atual (empr_cod, prod_cod, fornec_cod, custo, dt) VALUES (1, 4, 0, 3.95, '2026-09-01');
INSERT INTO prod_custo_atual (empr_cod, prod_cod, fornec_cod, custo, dt) VALUES (1, 5, 0, 14.80, '2026-09-01');
INSERT INTO prod_custo_atual (empr_cod, prod_cod, fornec_cod, custo, dt) VALUES (1, 6, 0, 4.35, '2026-09-01');
INSERT INTO prod_custo_atual (empr_cod, prod_cod, fornec_cod, custo, dt) VALUES (1, 7, 0, 8.90, '2026-09-01');
INSERT INTO prod_custo_atual (empr_cod, prod_cod, fornec_cod, custo, dt) VALUES (1, 8, 0, 19.50, '2026-10-21');
INSERT INTO prod_custo_atual (empr_cod, prod_cod, fornec_cod, custo, dt) VALUES (1, 9, 0, 9.80, '2026-09-01');
INSERT INTO prod_custo_atual (empr_cod, prod_cod, fornec_cod, custo, dt) VALUES (1, 10, 0, 6.20, '2026-09-01');
INSERT INTO prod_custo_atual (empr_cod, prod_cod, fornec_cod, custo, dt) VALUES (1, 11, 0, 11.50, '2026-09-01');
INSERT INTO prod_custo_atual (empr_cod, prod_cod, fornec_cod, custo, dt) VALUES (1, 12, 0, 1.85, '2026-09-01');
INSERT INTO prod_custo_atual (empr_cod, prod_cod, fornec_cod, custo, dt) VALUES (1, 13, 0, 9.70, '2026-09-01');
INSERT INTO prod_custo_atual (empr_cod, prod_cod, fornec_cod, custo, dt) VALUES (1, 14, 0, 6.10, '2026-09-01');
INSERT INTO prod_custo_atual (empr_cod, prod_cod, fornec_cod, custo, dt) VALUES (1, 15, 0, 18.00, '2026-09-01');
INSERT INTO prod_custo_atual (empr_cod, prod_cod, fornec_cod, custo, dt) VALUES (1, 16, 0, 42.00, '2026-09-01');
INSERT INTO prod_custo_atual (empr_cod, prod_cod, fornec_cod, custo, dt) VALUES (2, 1, 0, 23.60, '2026-09-01');
INSERT INTO prod_custo_atual (empr_cod, prod_cod, fornec_cod, custo, dt) VALUES (2, 2, 0, 7.65, '2026-09-01');
INSERT INTO prod_custo_atual (empr_cod, prod_cod, fornec_cod, custo, dt) VALUES (2, 3, 0, 4.25, '2026-09-01');
INSERT INTO prod_custo_atual (empr_cod, prod_cod, fornec_cod, custo, dt) VALUES (2, 4, 0, 4.05, '2026-09-01');
INSERT INTO prod_custo_atual (empr_cod, prod_cod, fornec_cod, custo, dt) VALUES (2, 5, 0, 15.20, '2026-09-01');
INSERT INTO prod_custo_atual (empr_cod, prod_cod, fornec_cod, custo, dt) VALUES (2, 6, 0, 4.48, '2026-09-01');
INSERT INTO prod_custo_atual (empr_cod, prod_cod, fornec_cod, custo, dt) VALUES (2, 7, 0, 9.17, '2026-09-01');
INSERT INTO prod_custo_atual (empr_cod, prod_cod, fornec_cod, custo, dt) VALUES (2, 8, 0, 20.10, '2026-09-01');
INSERT INTO prod_custo_atual (empr_cod, prod_cod, fornec_cod, custo, dt) VALUES (2, 9, 0, 9.60, '2026-09-01');
INSERT INTO prod_custo_atual (empr_cod, prod_cod, fornec_cod, custo, dt) VALUES (2, 10, 0, 6.40, '2026-09-01');
INSERT INTO prod_custo_atual (empr_cod, prod_cod, fornec_cod, custo, dt) VALUES (2, 11, 0, 11.90, '2026-09-01');
INSERT INTO prod_custo_atual (empr_cod, prod_cod, fornec_cod, custo, dt) VALUES (2, 12, 0, 1.90, '2026-09-01');
INSERT INTO prod_custo_atual (empr_cod, prod_cod, fornec_cod, custo, dt) VALUES (2, 13, 0, 9.95, '2026-09-01');
INSERT INTO prod_custo_atual (empr_cod, prod_cod, fornec_cod, custo, dt) VALUES (2, 14, 0, 6.25, '2026-09-01');
INSERT INTO prod_custo_atual (empr_cod, prod_cod, fornec_cod, custo, dt) VALUES (2, 15, 0, 18.50, '2026-09-01');
INSERT INTO prod_custo_atual (empr_cod, prod_cod, fornec_cod, custo, dt) VALUES (2, 16, 0, 43.00, '2026-09-01');
INSERT INTO prod_custo_atual (empr_cod, prod_cod, fornec_cod, custo, dt) VALUES (1, 3, 3, 4.1000, '2026-10-21');
INSERT INTO prod_custo_atual (empr_cod, prod_cod, fornec_cod, custo, dt) VALUES (1, 8, 3, 19.5000, '2026-10-21');

INSERT INTO prod_custo (prod_custo_cod, empr_cod, prod_cod, fornec_cod, custo, dt, compra_cod, est_mov_cod, dth_cri) VALUES (1, 1, 1, 0, 22.90, '2026-09-01', NULL, NULL, '2026-09-01 08:00:00');
INSERT INTO prod_custo (prod_custo_cod, empr_cod, prod_cod, fornec_cod, custo, dt, compra_cod, est_mov_cod, dth_cri) VALUES (2, 1, 2, 0, 7.40, '2026-09-01', NULL, NULL, '2026-09-01 08:00:00');
INSERT INTO prod_custo (prod_custo_cod, empr_cod, prod_cod, fornec_cod, custo, dt, compra_cod, est_mov_cod, dth_cri) VALUES (3, 1, 3, 0, 4.10, '2026-09-01', NULL, NULL, '2026-09-01 08:00:00');
INSERT INTO prod_custo (prod_custo_cod, empr_cod, prod_cod, fornec_cod, custo, dt, compra_cod, est_mov_cod, dth_cri) VALUES (4, 1, 4, 0, 3.95, '2026-09-01', NULL, NULL, '2026-09-01 08:00:00');
INSERT INTO prod_custo (prod_custo_cod, empr_cod, prod_cod, fornec_cod, custo, dt, compra_cod, est_mov_cod, dth_cri) VALUES (5, 1, 5, 0, 14.80, '2026-09-01', NULL, NULL, '2026-09-01 08:00:00');
INSERT INTO prod_custo (prod_custo_cod, empr_cod, prod_cod, fornec_cod, custo, dt, compra_cod, est_mov_cod, dth_cri) VALUES (6, 1, 6, 0, 4.35, '2026-09-01', NULL, NULL, '2026-09-01 08:00:00');
INSERT INTO prod_custo (prod_custo_cod, empr_cod, prod_cod, fornec_cod, custo, dt, compra_cod, est_mov_cod, dth_cri) VALUES (7, 1, 7, 0, 8.90, '2026-09-01', NULL, NULL, '2026-09-01 08:00:00');
INSERT INTO prod_custo (prod_custo_cod, empr_cod, prod_cod, fornec_cod, custo, dt, compra_cod, est_mov_cod, dth_cri) VALUES (8, 1, 8, 0, 19.50, '2026-09-01', NULL, NULL, '2026-09-01 08:00:00');
INSERT INTO prod_custo (prod_custo_cod, empr_cod, prod_cod, fornec_cod, custo, dt, compra_cod, est_mov_cod, dth_cri) VALUES (9, 1, 9, 0, 9.80, '2026-09-01', NULL, NULL, '2026-09-01 08:00:00');
INSERT INTO prod_custo (prod_custo_cod, empr_cod, prod_cod, fornec_cod, custo, dt, compra_cod, est_mov_cod, dth_cri) VALUES (10, 1, 10, 0, 6.20, '2026-09-01', NULL, NULL, '2026-09-01 08:00:00');
INSERT INTO prod_custo (prod_custo_cod, empr_cod, prod_cod, fornec_cod, custo, dt, compra_cod, est_mov_cod, dth_cri) VALUES (11, 1, 11, 0, 11.50, '2026-09-01', NULL, NULL, '2026-09-01 08:00:00');
INSERT INTO prod_custo (prod_custo_cod, empr_cod, prod_cod, fornec_cod, custo, dt, compra_cod, est_mov_cod, dth_cri) VALUES (12, 1, 12, 0, 1.85, '2026-09-01', NULL, NULL, '2026-09-01 08:00:00');
INSERT INTO prod_custo (prod_custo_cod, empr_cod, prod_cod, fornec_cod, custo, dt, compra_cod, est_mov_cod, dth_cri) VALUES (13, 1, 13, 0, 9.70, '2026-09-01', NULL, NULL, '2026-09-01 08:00:00');
INSERT INTO prod_custo (prod_custo_cod, empr_cod, prod_cod, fornec_cod, custo, dt, compra_cod, est_mov_cod, dth_cri) VALUES (14, 1, 14, 0, 6.10, '2026-09-01', NULL, NULL, '2026-09-01 08:00:00');
INSERT INTO prod_custo (prod_custo_cod, empr_cod, prod_cod, fornec_cod, custo, dt, compra_cod, est_mov_cod, dth_cri) VALUES (15, 1, 15, 0, 18.00, '2026-09-01', NULL, NULL, '2026-09-01 08:00:00');
INSERT INTO prod_custo (prod_custo_cod, empr_cod, prod_cod, fornec_cod, custo, dt, compra_cod, est_mov_cod, dth_cri) VALUES (16, 1, 16, 0, 42.00, '2026-09-01', NULL, NULL, '2026-09-01 08:00:00');
INSERT INTO prod_custo (prod_custo_cod, empr_cod, prod_cod, fornec_cod, custo, dt, compra_cod, est_mov_cod, dth_cri) VALUES (17, 1, 3, 3, 4.1000, '2026-10-21', 2, 1, '2026-10-21 09:15:22');
INSERT INTO prod_custo (prod_custo_cod, empr_cod, prod_cod, fornec_cod, custo, dt, compra_cod, est_mov_cod, dth_cri) VALUES (18, 1, 8, 3, 19.5000, '2026-10-21', 2, 2, '2026-10-21 09:15:22');

-- Current prices: retail from cost and margin, the other tables from retail.
INSERT INTO prod_preco_atual (empr_cod, tab_preco_cod, prod_cod, preco, dt) VALUES (1, 1, 1, 28.62, '2026-09-01');
INSERT INTO prod_preco_atual (empr_cod, tab_preco_cod, prod_cod, preco, dt) VALUES (1, 2, 1, 25.76, '2026-09-01');
INSERT INTO prod_preco_atual (empr_cod, tab_preco_cod, prod_cod, preco, dt) VALUES (1, 3, 1, 24.33, '2026-09-01');
INSERT INTO prod_preco_atual (empr_cod, tab_preco_cod, prod_cod, preco, dt) VALUES (1, 1, 2, 9.62, '2026-09-01');
INSERT INTO prod_preco_atual (empr_cod, tab_preco_cod, prod_cod, preco, dt) VALUES (1, 2, 2, 8.66, '2026-09-01');
INSERT INTO prod_preco_atual (empr_cod, tab_preco_cod, prod_cod, preco, dt) VALUES (1, 3, 2, 8.18, '2026-09-01');
INSERT INTO prod_preco_atual (empr_cod, tab_preco_cod, prod_cod, preco, dt) VALUES (1, 1, 3, 5.33, '2026-09-01');
INSERT INTO prod_preco_atual (empr_cod, tab_preco_cod, prod_cod, preco, dt) VALUES (1, 2, 3, 4.80, '2026-09-01');
INSERT INTO prod_preco_atual (empr_cod, tab_preco_cod, prod_cod, preco, dt) VALUES (1, 3, 3, 4.54, '2026-09-01');
INSERT INTO prod_preco_atual (empr_cod, tab_preco_cod, prod_cod, preco, dt) VALUES (1, 1, 4, 5.13, '2026-09-01');
INSERT INTO prod_preco_atual (empr_cod, tab_preco_cod, prod_cod, preco, dt) VALUES (1, 2, 4, 4.62, '2026-09-01');
INSERT INTO prod_preco_atual (empr_cod, tab_preco_cod, prod_cod, preco, dt) VALUES (1, 3, 4, 4.37, '2026-09-01');
INSERT INTO prod_preco_atual (empr_cod, tab_preco_cod, prod_cod, preco, dt) VALUES (1, 1, 5, 19.98, '2026-09-01');
INSERT INTO prod_preco_atual (empr_cod, tab_preco_cod, prod_cod, preco, dt) VALUES (1, 2, 5, 17.99, '2026-09-01');
INSERT INTO prod_preco_atual (empr_cod, tab_preco_cod, prod_cod, preco, dt) VALUES (1, 3, 5, 16.99, '2026-09-01');
INSERT INTO prod_preco_atual (empr_cod, tab_preco_cod, prod_cod, preco, dt) VALUES (1, 1, 6, 5.43, '2026-09-01');
INSERT INTO prod_preco_atual (empr_cod, tab_preco_cod, prod_cod, preco, dt) VALUES (1, 2, 6, 4.89, '2026-09-01');
INSERT INTO prod_preco_atual (empr_cod, tab_preco_cod, prod_cod, preco, dt) VALUES (1, 3, 6, 4.62, '2026-09-01');
INSERT INTO prod_preco_atual (empr_cod, tab_preco_cod, prod_cod, preco, dt) VALUES (1, 1, 7, 12.01, '2026-09-01');
INSERT INTO prod_preco_atual (empr_cod, tab_preco_cod, prod_cod, preco, dt) VALUES (1, 2, 7, 10.81, '2026-09-01');
INSERT INTO prod_preco_atual (empr_cod, tab_preco_cod, prod_cod, preco, dt) VALUES (1, 3, 7, 10.21, '2026-09-01');
INSERT INTO prod_preco_atual (empr_cod, tab_preco_cod, prod_cod, preco, dt) VALUES (1, 1, 8, 25.35, '2026-09-01');
INSERT INTO prod_preco_atual (empr_cod, tab_preco_cod, prod_cod, preco, dt) VALUES (1, 2, 8, 22.82, '2026-09-01');
INSERT INTO prod_preco_atual (empr_cod, tab_preco_cod, prod_cod, preco, dt) VALUES (1, 3, 8, 21.55, '2026-09-01');
INSERT INTO prod_preco_atual (empr_cod, tab_preco_cod, prod_cod, preco, dt) VALUES (1, 1, 9, 12.74, '2026-09-01');
INSERT INTO prod_preco_atual (empr_cod, tab_preco_cod, prod_cod, preco, dt) VALUES (1, 2, 9, 11.47, '2026-09-01');
INSERT INTO prod_preco_atual (empr_cod, tab_preco_cod, prod_cod, preco, dt) VALUES (1, 3, 9, 10.83, '2026-09-01');
INSERT INTO prod_preco_atual (empr_cod, tab_preco_cod, prod_cod, preco, dt) VALUES (1, 1, 10, 13.64, '2026-09-01');
INSERT INTO prod_preco_atual (empr_cod, tab_preco_cod, prod_cod, preco, dt) VALUES (1, 2, 10, 12.28, '2026-09-01');
INSERT INTO prod_preco_atual (empr_cod, tab_preco_cod, prod_cod, preco, dt) VALUES (1, 3, 10, 11.60, '2026-09-01');
INSERT INTO prod_preco_atual (empr_cod, tab_preco_cod, prod_cod, preco, dt) VALUES (1, 1, 11, 23.00, '2026-09-01');
INSERT INTO prod_preco_atual (empr_cod, tab_preco_cod, prod_cod, preco, dt) VALUES (1, 2, 11, 20.70, '2026-09-01');
INSERT INTO prod_preco_atual (empr_cod, tab_preco_cod, prod_cod, preco, dt) VALUES (1, 3, 11, 19.55, '2026-09-01');
INSERT INTO prod_preco_atual (empr_cod, tab_preco_cod, prod_cod, preco, dt) VALUES (1, 1, 12, 2.68, '2026-09-01');
INSERT INTO prod_preco_atual (empr_cod, tab_preco_cod, prod_cod, preco, dt) VALUES (1, 2, 12, 2.42, '2026-09-01');
INSERT INTO prod_preco_atual (empr_cod, tab_preco_cod, prod_cod, preco, dt) VALUES (1, 3, 12, 2.28, '2026-09-01');
INSERT INTO prod_preco_atual (empr_cod, tab_preco_cod, prod_cod, preco, dt) VALUES (1, 1, 13, 13.58, '2026-09-01');
INSERT INTO prod_preco_atual (empr_cod, tab_preco_cod, prod_cod, preco, dt) VALUES (1, 2, 13, 12.23, '2026-09-01');
INSERT INTO prod_preco_atual (empr_cod, tab_preco_cod, prod_cod, preco, dt) VALUES (1, 3, 13, 11.55, '2026-09-01');
INSERT INTO prod_preco_atual (empr_cod, tab_preco_cod, prod_cod, preco, dt) VALUES (1, 1, 14, 8.23, '2026-09-01');
INSERT INTO prod_preco_atual (empr_cod, tab_preco_cod, prod_cod, preco, dt) VALUES (1, 2, 14, 7.41, '2026-09-01');
INSERT INTO prod_preco_atual (empr_cod, tab_preco_cod, prod_cod, preco, dt) VALUES (1, 3, 14, 7.00, '2026-09-01');
INSERT INTO prod_preco_atual (empr_cod, tab_preco_cod, prod_cod, preco, dt) VALUES (1, 1, 15, 32.40, '2026-09-01');
INSERT INTO prod_preco_atual (empr_cod, tab_preco_cod, prod_cod, preco, dt) VALUES (1, 2, 15, 29.16, '2026-09-01');
INSERT INTO prod_preco_atual (empr_cod, tab_preco_cod, prod_cod, preco, dt) VALUES (1, 3, 15, 27.54, '2026-09-01');
INSERT INTO prod_preco_atual (empr_cod, tab_preco_cod, prod_cod, preco, dt) VALUES (1, 1, 16, 75.60, '2026-09-01');
INSERT INTO prod_preco_atual (empr_cod, tab_preco_cod, prod_cod, preco, dt) VALUES (1, 2, 16, 68.04, '2026-09-01');
INSERT INTO prod_preco_atual (empr_cod, tab_preco_cod, prod_cod, preco, dt) VALUES (1, 3, 16, 64.26, '2026-09-01');
INSERT INTO prod_preco_atual (empr_cod, tab_preco_cod, prod_cod, preco, dt) VALUES (2, 1, 1, 29.50, '2026-09-01');
INSERT INTO prod_preco_atual (empr_cod, tab_preco_cod, prod_cod, preco, dt) VALUES (2, 2, 1, 26.55, '2026-09-01');
INSERT INTO prod_preco_atual (empr_cod, tab_preco_cod, prod_cod, preco, dt) VALUES (2, 3, 1, 25.08, '2026-09-01');
INSERT INTO prod_preco_atual (empr_cod, tab_preco_cod, prod_cod, preco, dt) VALUES (2, 1, 2, 9.94, '2026-09-01');
INSERT INTO prod_preco_atual (empr_cod, tab_preco_cod, prod_cod, preco, dt) VALUES (2, 2, 2, 8.95, '2026-09-01');
INSERT INTO prod_preco_atual (empr_cod, tab_preco_cod, prod_cod, preco, dt) VALUES (2, 3, 2, 8.45, '2026-09-01');
INSERT INTO prod_preco_atual (empr_cod, tab_preco_cod, prod_cod, preco, dt) VALUES (2, 1, 3, 5.52, '2026-09-01');
INSERT INTO prod_preco_atual (empr_cod, tab_preco_cod, prod_cod, preco, dt) VALUES (2, 2, 3, 4.97, '2026-09-01');
INSERT INTO prod_preco_atual (empr_cod, tab_preco_cod, prod_cod, preco, dt) VALUES (2, 3, 3, 4.70, '2026-09-01');
INSERT INTO prod_preco_atual (empr_cod, tab_preco_cod, prod_cod, preco, dt) VALUES (2, 1, 4, 5.26, '2026-09-01');
INSERT INTO prod_preco_atual (empr_cod, tab_preco_cod, prod_cod, preco, dt) VALUES (2, 2, 4, 4.74, '2026-09-01');
INSERT INTO prod_preco_atual (empr_cod, tab_preco_cod, prod_cod, preco, dt) VALUES (2, 3, 4, 4.48, '2026-09-01');
INSERT INTO prod_preco_atual (empr_cod, tab_preco_cod, prod_cod, preco, dt) VALUES (2, 1, 5, 20.52, '2026-09-01');
INSERT INTO prod_preco_atual (empr_cod, tab_preco_cod, prod_cod, preco, dt) VALUES (2, 2, 5, 18.47, '2026-09-01');
INSERT INTO prod_preco_atual (empr_cod, tab_preco_cod, prod_cod, preco, dt) VALUES (2, 3, 5, 17.45, '2026-09-01');
INSERT INTO prod_preco_atual (empr_cod, tab_preco_cod, prod_cod, preco, dt) VALUES (2, 1, 6, 5.60, '2026-09-01');
INSERT INTO prod_preco_atual (empr_cod, tab_preco_cod, prod_cod, preco, dt) VALUES (2, 2, 6, 5.04, '2026-09-01');
INSERT INTO prod_preco_atual (empr_cod, tab_preco_cod, prod_cod, preco, dt) VALUES (2, 3, 6, 4.76, '2026-09-01');
INSERT INTO prod_preco_atual (empr_cod, tab_preco_cod, prod_cod, preco, dt) VALUES (2, 1, 7, 12.37, '2026-09-01');
INSERT INTO prod_preco_atual (empr_cod, tab_preco_cod, prod_cod, preco, dt) VALUES (2, 2, 7, 11.14, '2026-09-01');
INSERT INTO prod_preco_atual (empr_cod, tab_preco_cod, prod_cod, preco, dt) VALUES (2, 3, 7, 10.52, '2026-09-01');
INSERT INTO prod_preco_atual (empr_cod, tab_preco_cod, prod_cod, preco, dt) VALUES (2, 1, 8, 26.13, '2026-09-01');
INSERT INTO prod_preco_atual (empr_cod, tab_preco_cod, prod_cod, preco, dt) VALUES (2, 2, 8, 23.52, '2026-09-01');
INSERT INTO prod_preco_atual (empr_cod, tab_preco_cod, prod_cod, preco, dt) VALUES (2, 3, 8, 22.22, '2026-09-01');
INSERT INTO prod_preco_atual (empr_cod, tab_preco_cod, prod_cod, preco, dt) VALUES (2, 1, 9, 12.48, '2026-09-01');
INSERT INTO prod_preco_atual (empr_cod, tab_preco_cod, prod_cod, preco, dt) VALUES (2, 2, 9, 11.24, '2026-09-01');
INSERT INTO prod_preco_atual (empr_cod, tab_preco_cod, prod_cod, preco, dt) VALUES (2, 3, 9, 10.61, '2026-09-01');
INSERT INTO prod_preco_atual (empr_cod, tab_preco_cod, prod_cod, preco, dt) VALUES (2, 1, 10, 14.08, '2026-09-01');
INSERT INTO prod_preco_atual (empr_cod, tab_preco_cod, prod_cod, preco, dt) VALUES (2, 2, 10, 12.68, '2026-09-01');
INSERT INTO prod_preco_atual (empr_cod, tab_preco_cod, prod_cod, preco, dt) VALUES (2, 3, 10, 11.97, '2026-09-01');
INSERT INTO prod_preco_atual (empr_cod, tab_preco_cod, prod_cod, preco, dt) VALUES (2, 1, 11, 23.80, '2026-09-01');
INSERT INTO prod_preco_atual (empr_cod, tab_preco_cod, prod_cod, preco, dt) VALUES (2, 2, 11, 21.42, '2026-09-01');
INSERT INTO prod_preco_atual (empr_cod, tab_preco_cod, prod_cod, preco, dt) VALUES (2, 3, 11, 20.23, '2026-09-01');
INSERT INTO prod_preco_atual (empr_cod, tab_preco_cod, prod_cod, preco, dt) VALUES (2, 1, 12, 2.75, '2026-09-01');
INSERT INTO prod_preco_atual (empr_cod, tab_preco_cod, prod_cod, preco, dt) VALUES (2, 2, 12, 2.48, '2026-09-01');
INSERT INTO prod_preco_atual (empr_cod, tab_preco_cod, prod_cod, preco, dt) VALUES (2, 3, 12, 2.34, '2026-09-01');
INSERT INTO prod_preco_atual (empr_cod, tab_preco_cod, prod_cod, preco, dt) VALUES (2, 1, 13, 13.93, '2026-09-01');
INSERT INTO prod_preco_atual (empr_cod, tab_preco_cod, prod_cod, preco, dt) VALUES (2, 2, 13, 12.54, '2026-09-01');
INSERT INTO prod_preco_atual (empr_cod, tab_preco_cod, prod_cod, preco, dt) VALUES (2, 3, 13, 11.85, '2026-09-01');
INSERT INTO prod_preco_atual (empr_cod, tab_preco_cod, prod_cod, preco, dt) VALUES (2, 1, 14, 8.43, '2026-09-01');
INSERT INTO prod_preco_atual (empr_cod, tab_preco_cod, prod_cod, preco, dt) VALUES (2, 2, 14, 7.59, '2026-09-01');
INSERT INTO prod_preco_atual (empr_cod, tab_preco_cod, prod_cod, preco, dt) VALUES (2, 3, 14, 7.17, '2026-09-01');
INSERT INTO prod_preco_atual (empr_cod, tab_preco_cod, prod_cod, preco, dt) VALUES (2, 1, 15, 33.30, '2026-09-01');
INSERT INTO prod_preco_atual (empr_cod, tab_preco_cod, prod_cod, preco, dt) VALUES (2, 2, 15, 29.97, '2026-09-01');
INSERT INTO prod_preco_atual (empr_cod, tab_preco_cod, prod_cod, preco, dt) VALUES (2, 3, 15, 28.31, '2026-09-01');
INSERT INTO prod_preco_atual (empr_cod, tab_preco_cod, prod_cod, preco, dt) VALUES (2, 1, 16, 77.40, '2026-09-01');
INSERT INTO prod_preco_atual (empr_cod, tab_preco_cod, prod_cod, preco, dt) VALUES (2, 2, 16, 69.66, '2026-09-01');
INSERT INTO prod_preco_atual (empr_cod, tab_preco_cod, prod_cod, preco, dt) VALUES (2, 3, 16, 65.79, '2026-09-01');

INSERT INTO prod_preco (prod_preco_cod, empr_cod, tab_preco_cod, prod_cod, preco, preco_promo, dt, enviado, dth_cri) VALUES (1, 1, 1, 1, 28.62, 0, '2026-09-01', 'S', '2026-09-01 08:00:00');
INSERT INTO prod_preco (prod_preco_cod, empr_cod, tab_preco_cod, prod_cod, preco, preco_promo, dt, enviado, dth_cri) VALUES (2, 1, 1, 2, 9.62, 0, '2026-09-01', 'S', '2026-09-01 08:00:00');
INSERT INTO prod_preco (prod_preco_cod, empr_cod, tab_preco_cod, prod_cod, preco, preco_promo, dt, enviado, dth_cri) VALUES (3, 1, 1, 3, 5.33, 0, '2026-09-01', 'S', '2026-09-01 08:00:00');
INSERT INTO prod_preco (prod_preco_cod, empr_cod, tab_preco_cod, prod_cod, preco, preco_promo, dt, enviado, dth_cri) VALUES (4, 1, 1, 4, 5.13, 0, '2026-09-01', 'S', '2026-09-01 08:00:00');
INSERT INTO prod_preco (prod_preco_cod, empr_cod, tab_preco_cod, prod_cod, preco, preco_promo, dt, enviado, dth_cri) VALUES (5, 1, 1, 5, 19.98, 0, '2026-09-01', 'S', '2026-09-01 08:00:00');
INSERT INTO prod_preco (prod_preco_cod, empr_cod, tab_preco_cod, prod_cod, preco, preco_promo, dt, enviado, dth_cri) VALUES (6, 1, 1, 6, 5.43, 0, '2026-09-01', 'S', '2026-09-01 08:00:00');
INSERT INTO prod_preco (prod_preco_cod, empr_cod, tab_preco_cod, prod_cod, preco, preco_promo, dt, enviado, dth_cri) VALUES (7, 1, 1, 7, 12.01, 0, '2026-09-01', 'S', '2026-09-01 08:00:00');
INSERT INTO prod_preco (prod_preco_cod, empr_cod, tab_preco_cod, prod_cod, preco, preco_promo, dt, enviado, dth_cri) VALUES (8, 1, 1, 8, 25.35, 0, '2026-09-01', 'S', '2026-09-01 08:00:00');
INSERT INTO prod_preco (prod_preco_cod, empr_cod, tab_preco_cod, prod_cod, preco, preco_promo, dt, enviado, dth_cri) VALUES (9, 1, 1, 9, 12.74, 0, '2026-09-01', 'S', '2026-09-01 08:00:00');
INSERT INTO prod_preco (prod_preco_cod, empr_cod, tab_preco_cod, prod_cod, preco, preco_promo, dt, enviado, dth_cri) VALUES (10, 1, 1, 10, 13.64, 0, '2026-09-01', 'S', '2026-09-01 08:00:00');
INSERT INTO prod_preco (prod_preco_cod, empr_cod, tab_preco_cod, prod_cod, preco, preco_promo, dt, enviado, dth_cri) VALUES (11, 1, 1, 11, 23.00, 0, '2026-09-01', 'S', '2026-09-01 08:00:00');
INSERT INTO prod_preco (prod_preco_cod, empr_cod, tab_preco_cod, prod_cod, preco, preco_promo, dt, enviado, dth_cri) VALUES (12, 1, 1, 12, 2.68, 0, '2026-09-01', 'S', '2026-09-01 08:00:00');
INSERT INTO prod_preco (prod_preco_cod, empr_cod, tab_preco_cod, prod_cod, preco, preco_promo, dt, enviado, dth_cri) VALUES (13, 1, 1, 13, 13.58, 0, '2026-09-01', 'S', '2026-09-01 08:00:00');
INSERT INTO prod_preco (prod_preco_cod, empr_cod, tab_preco_cod, prod_cod, preco, preco_promo, dt, enviado, dth_cri) VALUES (14, 1, 1, 14, 8.23, 0, '2026-09-01', 'S', '2026-09-01 08:00:00');
INSERT INTO prod_preco (prod_preco_cod, empr_cod, tab_preco_cod, prod_cod, preco, preco_promo, dt, enviado, dth_cri) VALUES (15, 1, 1, 15, 32.40, 0, '2026-09-01', 'S', '2026-09-01 08:00:00');
INSERT INTO prod_preco (prod_preco_cod, empr_cod, tab_preco_cod, prod_cod, preco, preco_promo, dt, enviado, dth_cri) VALUES (16, 1, 1, 16, 75.60, 0, '2026-09-01', 'S', '2026-09-01 08:00:00');

-- Coffee on promotion until the end of the month.
INSERT INTO prod_promo (empr_cod, prod_cod, dt_ini, dt_fim, preco_promo) VALUES (1, 5, '2026-11-16', '2026-11-30', 17.90);

-- ---------------------------------------------------------------------------
-- Notes
-- ---------------------------------------------------------------------------

-- 1 cancelled purchase of shirts, 2 purchase imported from the NF-e XML of the
-- mill in PR (posted), 3 return of milk to VALE VERDE, its NF-e numbered and
-- waiting for authorisation (posted),
-- 4 purchase typed by hand, 5 production of the bakery, 6 purchase of the
-- second company.  Notes were typed at station 1 (company 2: station 2).
INSERT INTO compra (
  empr_cod, estacao_cod, compra_cod, destin_empr_cod, tipo_cod, cancelado, baixado, dt_doc,
  dth_sai, dth_cri, ndoc, serie, fornec_cod, tot_prods, ipi, frete, outras, icms, fcp, fcpst,
  desconto, tot, bc, bcst, st, cfop, nat_op_str, frete_modalidade, transp_fornec_cod,
  frete_vols_qtd, frete_vols_especie, frete_peso_liq, frete_peso_bruto, frete_vei_placa,
  frete_vei_uf, inf_adic_fisco, inf_adic_contribuinte, nfe_chave_ref, arq_xml, nfe_num, nfe_chave,
  nfe_protocolo, nfe_dth_emiss, modelo_cod
) VALUES (
  1, 1, 1, 0, '"', 'S', 'N', '2026-10-05', '2026-10-05 08:30:00', '2026-10-05 10:12:31', 7781,
  '1', 4, 432.00, 0.00, 0.00, 0.00, 51.84, 0, 0, 0, 432.00, 432.00, 0, 0, '2102', NULL, 1, NULL,
  NULL, NULL, NULL, NULL, NULL, NULL, 'Empresa optante pelo regime normal de apuracao do ICMS.',
  'Duvidas sobre esta nota: (19) 3231-4455 ou fiscal@bompreco.com.br', NULL, NULL, NULL, NULL,
  NULL, NULL, '55'
);
INSERT INTO compra (
  empr_cod, estacao_cod, compra_cod, destin_empr_cod, tipo_cod, cancelado, baixado, dt_doc,
  dth_sai, dth_cri, ndoc, serie, fornec_cod, tot_prods, ipi, frete, outras, icms, fcp, fcpst,
  desconto, tot, bc, bcst, st, cfop, nat_op_str, frete_modalidade, transp_fornec_cod,
  frete_vols_qtd, frete_vols_especie, frete_peso_liq, frete_peso_bruto, frete_vei_placa,
  frete_vei_uf, inf_adic_fisco, inf_adic_contribuinte, nfe_chave_ref, arq_xml, nfe_num, nfe_chave,
  nfe_protocolo, nfe_dth_emiss, modelo_cod
) VALUES (
  1, 1, 2, 0, '"', 'N', 'S', '2026-10-20', '2026-10-19 16:40:00', '2026-10-20 09:02:44', 31874,
  '1', 3, 400.00, 0.00, 15.00, 0.00, 49.80, 0, 0, 0, 415.00, 415.00, 0, 0, '2102', NULL, 1, 5, 6,
  'FARDO', 60, 61.5, 'BRA2E19', 'PR', 'Empresa optante pelo regime normal de apuracao do ICMS.',
  'Duvidas sobre esta nota: (19) 3231-4455 ou fiscal@bompreco.com.br',
  '41261007736195000181550010000318741528109337',
  '<?xml version="1.0" encoding="UTF-8"?>
<nfeProc versao="4.00" xmlns="http://www.portalfiscal.inf.br/nfe"><NFe><infNFe Id="NFe41261007736195000181550010000318741528109337" versao="4.00">
<ide><cUF>41</cUF><natOp>VENDA DE PRODUCAO DO ESTABELECIMENTO</natOp><mod>55</mod><serie>1</serie><nNF>31874</nNF><dhEmi>2026-10-19T16:40:00-03:00</dhEmi><tpNF>1</tpNF><idDest>2</idDest><finNFe>1</finNFe></ide>
<emit><CNPJ>07736195000181</CNPJ><xNome>Moinho Parana Industria de Farinhas Ltda</xNome><enderEmit><xLgr>Rodovia BR-376</xLgr><nro>502</nro><xBairro>Distrito Industrial</xBairro><cMun>4119905</cMun><xMun>Ponta Grossa</xMun><UF>PR</UF><CEP>84043450</CEP></enderEmit><IE>9036117238</IE><CRT>3</CRT></emit>
<dest><CNPJ>24587136000108</CNPJ><xNome>Mercado Bom Preco Ltda</xNome><enderDest><xLgr>Rua Barao de Jaguara</xLgr><nro>1120</nro><xBairro>Centro</xBairro><cMun>3509502</cMun><xMun>Campinas</xMun><UF>SP</UF><CEP>13015002</CEP></enderDest><indIEDest>1</indIEDest><IE>244378126014</IE></dest>
<det nItem="1"><prod><cProd>310</cProd><cEAN>7899901000034</cEAN><xProd>FARINHA DE TRIGO TIPO 1 MOINHO PARANA 1KG</xProd><NCM>11010010</NCM><CFOP>6101</CFOP><uCom>FD</uCom><qCom>5.0000</qCom><vUnCom>41.00</vUnCom><vProd>205.00</vProd><vFrete>10.00</vFrete></prod><imposto><ICMS><ICMS00><orig>0</orig><CST>00</CST><modBC>3</modBC><vBC>215.00</vBC><pICMS>12.00</pICMS><vICMS>25.80</vICMS></ICMS00></ICMS></imposto></det>
<det nItem="2"><prod><cProd>455</cProd><cEAN>7899901000089</cEAN><xProd>FERMENTO BIOLOGICO SECO 500G</xProd><NCM>21021090</NCM><CFOP>6102</CFOP><uCom>CX</uCom><qCom>1.0000</qCom><vUnCom>195.00</vUnCom><vProd>195.00</vProd><vFrete>5.00</vFrete></prod><imposto><ICMS><ICMS00><orig>0</orig><CST>00</CST><modBC>3</modBC><vBC>200.00</vBC><pICMS>12.00</pICMS><vICMS>24.00</vICMS></ICMS00></ICMS></imposto></det>
<total><ICMSTot><vBC>415.00</vBC><vICMS>49.80</vICMS><vProd>400.00</vProd><vFrete>15.00</vFrete><vNF>415.00</vNF></ICMSTot></total>
<transp><modFrete>0</modFrete><transporta><CNPJ>28159347000109</CNPJ><xNome>Transportadora Rodovia Sul Ltda</xNome><UF>PR</UF></transporta><vol><qVol>6</qVol><esp>FARDO</esp><pesoL>60.000</pesoL><pesoB>61.500</pesoB></vol></transp>
</infNFe></NFe><protNFe versao="4.00"><infProt><chNFe>41261007736195000181550010000318741528109337</chNFe><dhRecbto>2026-10-19T16:41:12-03:00</dhRecbto><nProt>141260000873214</nProt><cStat>100</cStat></infProt></protNFe></nfeProc>',
  NULL, NULL, NULL, NULL, '55'
);
INSERT INTO compra (
  empr_cod, estacao_cod, compra_cod, destin_empr_cod, tipo_cod, cancelado, baixado, dt_doc,
  dth_sai, dth_cri, ndoc, serie, fornec_cod, tot_prods, ipi, frete, outras, icms, fcp, fcpst,
  desconto, tot, bc, bcst, st, cfop, nat_op_str, frete_modalidade, transp_fornec_cod,
  frete_vols_qtd, frete_vols_especie, frete_peso_liq, frete_peso_bruto, frete_vei_placa,
  frete_vei_uf, inf_adic_fisco, inf_adic_contribuinte, nfe_chave_ref, arq_xml, nfe_num, nfe_chave,
  nfe_protocolo, nfe_dth_emiss, modelo_cod
) VALUES (
  1, 1, 3, 0, '#', 'N', 'S', '2026-11-12', '2026-11-12 15:00:00', '2026-11-12 14:21:09', 0, '1',
  2, 104.40, 0.00, 0.00, 0.00, 7.31, 0, 0, 0, 104.40, 104.40, 0, 0, '5202',
  'DEVOLUCAO DE COMPRA PARA COMERCIALIZACAO', 4, NULL, NULL, NULL, NULL, NULL, NULL, NULL,
  'Empresa optante pelo regime normal de apuracao do ICMS. Devolucao referente a NF-e 98231 de 05/11/2026.',
  'Duvidas sobre esta nota: (19) 3231-4455 ou fiscal@bompreco.com.br',
  '35261133810274000103550010000982311404177557', NULL, 1532,
  '35261124587136000108550010000015321719204669', NULL, '2026-11-12 15:20:47', '55'
);
INSERT INTO compra (
  empr_cod, estacao_cod, compra_cod, destin_empr_cod, tipo_cod, cancelado, baixado, dt_doc,
  dth_sai, dth_cri, ndoc, serie, fornec_cod, tot_prods, ipi, frete, outras, icms, fcp, fcpst,
  desconto, tot, bc, bcst, st, cfop, nat_op_str, frete_modalidade, transp_fornec_cod,
  frete_vols_qtd, frete_vols_especie, frete_peso_liq, frete_peso_bruto, frete_vei_placa,
  frete_vei_uf, inf_adic_fisco, inf_adic_contribuinte, nfe_chave_ref, arq_xml, nfe_num, nfe_chave,
  nfe_protocolo, nfe_dth_emiss, modelo_cod
) VALUES (
  1, 1, 4, 0, '"', 'N', 'N', '2026-11-18', '2026-11-18 07:45:00', '2026-11-18 11:05:52', 45871,
  '1', 1, 934.40, 2.93, 0.00, 0.00, 89.02, 0, 0, 4.00, 939.33, 930.40, 106.58, 6.00, '1102', NULL,
  1, NULL, NULL, NULL, NULL, NULL, NULL, NULL,
  'Empresa optante pelo regime normal de apuracao do ICMS.',
  'Duvidas sobre esta nota: (19) 3231-4455 ou fiscal@bompreco.com.br', NULL, NULL, NULL, NULL,
  NULL, NULL, '55'
);
INSERT INTO compra (
  empr_cod, estacao_cod, compra_cod, destin_empr_cod, tipo_cod, cancelado, baixado, dt_doc,
  dth_sai, dth_cri, ndoc, serie, fornec_cod, tot_prods, ipi, frete, outras, icms, fcp, fcpst,
  desconto, tot, bc, bcst, st, cfop, nat_op_str, frete_modalidade, transp_fornec_cod,
  frete_vols_qtd, frete_vols_especie, frete_peso_liq, frete_peso_bruto, frete_vei_placa,
  frete_vei_uf, inf_adic_fisco, inf_adic_contribuinte, nfe_chave_ref, arq_xml, nfe_num, nfe_chave,
  nfe_protocolo, nfe_dth_emiss, modelo_cod
) VALUES (
  1, 1, 5, 0, '%', 'N', 'N', '2026-11-20', '2026-11-20 06:00:00', '2026-11-20 17:48:03', 0, '1',
  6, 301.00, 0.00, 0.00, 0.00, 0.00, 0, 0, 0, 301.00, 0, 0, 0, '1926',
  'PRODUCAO DO ESTABELECIMENTO', 4, NULL, NULL, NULL, NULL, NULL, NULL, NULL,
  'Empresa optante pelo regime normal de apuracao do ICMS.',
  'Duvidas sobre esta nota: (19) 3231-4455 ou fiscal@bompreco.com.br', NULL, NULL, NULL, NULL,
  NULL, NULL, NULL
);
INSERT INTO compra (
  empr_cod, estacao_cod, compra_cod, destin_empr_cod, tipo_cod, cancelado, baixado, dt_doc,
  dth_sai, dth_cri, ndoc, serie, fornec_cod, tot_prods, ipi, frete, outras, icms, fcp, fcpst,
  desconto, tot, bc, bcst, st, cfop, nat_op_str, frete_modalidade, transp_fornec_cod,
  frete_vols_qtd, frete_vols_especie, frete_peso_liq, frete_peso_bruto, frete_vei_placa,
  frete_vei_uf, inf_adic_fisco, inf_adic_contribuinte, nfe_chave_ref, arq_xml, nfe_num, nfe_chave,
  nfe_protocolo, nfe_dth_emiss, modelo_cod
) VALUES (
  2, 2, 6, 0, '"', 'N', 'N', '2026-11-21', '2026-11-19 18:10:00', '2026-11-21 09:40:15', 98412,
  '1', 2, 435.12, 0.00, 0.00, 0.00, 52.21, 0, 0, 0, 435.12, 435.12, 0, 0, '2102', NULL, 1, NULL,
  NULL, NULL, NULL, NULL, NULL, NULL, 'Contribuinte do ICMS de Minas Gerais.',
  'Atendimento: (34) 3219-7700', NULL, NULL, NULL, NULL, NULL, NULL, '55'
);

INSERT INTO compra (
  empr_cod, estacao_cod, compra_cod, destin_empr_cod, tipo_cod, cancelado, baixado, dt_doc,
  dth_sai, dth_cri, ndoc, serie, fornec_cod, tot_prods, ipi, frete, outras, icms, fcp, fcpst,
  desconto, tot, bc, bcst, st, cfop, nat_op_str, frete_modalidade, transp_fornec_cod,
  frete_vols_qtd, frete_vols_especie, frete_peso_liq, frete_peso_bruto, frete_vei_placa,
  frete_vei_uf, inf_adic_fisco, inf_adic_contribuinte, nfe_chave_ref, arq_xml, nfe_num, nfe_chave,
  nfe_protocolo, nfe_dth_emiss, modelo_cod
) VALUES (
  1, 1, 7, 0, '$', 'N', 'N', '2026-11-22', '2026-11-22 10:00:00', '2026-11-22 09:12:40', 0, '1',
  2, 104.40, 0.00, 0.00, 0.00, 7.31, 0, 0, 0, 104.40, 104.40, 0, 0, '5915',
  'REMESSA DE MERCADORIA PARA CONSERTO', 4, NULL, NULL, NULL, NULL, NULL, NULL, NULL,
  'Empresa optante pelo regime normal de apuracao do ICMS.',
  'Duvidas sobre esta nota: (19) 3231-4455 ou fiscal@bompreco.com.br', NULL, NULL, NULL, NULL,
  NULL, NULL, '55'
);

-- Staged items (station 10) and their sale prices per price table.
INSERT INTO compra_item_tmp (
  empr_cod, estacao_cod, compra_cod, compra_item_tmp_cod, prod_cod_deles, prod_cod, unid_cod,
  trib_cod, ipi, ipi_val, outras, emb_qtd, qtd_embs, custo_tot, desconto, ordem,
  prod_descr_fornec, pipi, vipi, frete, prod_margem, preco_novo, bar_cod_fornec, ncm, tot_entra,
  cfop, trib_icms_cst, trib_orig, trib_icms_modbc, trib_icms_picms, trib_icms_vicms,
  trib_icms_vbc, trib_icms_modbcst, trib_icms_pmvast, trib_icms_predbcst, trib_icms_picmsst,
  trib_icms_vbcst, trib_icms_vicmsst, seguro, icms_perc_red, trib_icms_predbc, info_adic, cst_pis,
  ppis, vpis, cst_cofins, pcofins, vcofins
) VALUES (
  1, 10, 1, 1, 'CAM-BAS-01', 15, 4, 5, 0, 0.0000, 0, 1, 24, 432.00, 0, 1,
  'CAMISETA BASICA MALHA 30.1 ALGODAO', 0, 0.0000, 0, 80, 28.51, NULL, '61091000', 432.0000,
  '2102', 0, 0, 3, 12, 51.84, 432.00, NULL, 0, 0, 0, 0, 0, 0, 0, 0, NULL, 50, 1.65, 7.13, 50, 7.6,
  32.83
);
INSERT INTO compra_item_tmp_precos (empr_cod, estacao_cod, compra_item_tmp_cod, tab_preco_cod, preco) VALUES (1, 10, 1, 1, 28.51);
INSERT INTO compra_item_tmp_precos (empr_cod, estacao_cod, compra_item_tmp_cod, tab_preco_cod, preco) VALUES (1, 10, 1, 2, 25.66);
INSERT INTO compra_item_tmp_precos (empr_cod, estacao_cod, compra_item_tmp_cod, tab_preco_cod, preco) VALUES (1, 10, 1, 3, 24.24);

INSERT INTO compra_item_tmp (
  empr_cod, estacao_cod, compra_cod, compra_item_tmp_cod, prod_cod_deles, prod_cod, unid_cod,
  trib_cod, ipi, ipi_val, outras, emb_qtd, qtd_embs, custo_tot, desconto, ordem,
  prod_descr_fornec, pipi, vipi, frete, prod_margem, preco_novo, bar_cod_fornec, ncm, tot_entra,
  cfop, trib_icms_cst, trib_orig, trib_icms_modbc, trib_icms_picms, trib_icms_vicms,
  trib_icms_vbc, trib_icms_modbcst, trib_icms_pmvast, trib_icms_predbcst, trib_icms_picmsst,
  trib_icms_vbcst, trib_icms_vicmsst, seguro, icms_perc_red, trib_icms_predbc, info_adic, cst_pis,
  ppis, vpis, cst_cofins, pcofins, vcofins
) VALUES (
  1, 10, 2, 2, '310', 3, 3, 2, 0, 0.0000, 0, 10, 5, 205.00, 0, 1,
  'FARINHA DE TRIGO TIPO 1 MOINHO PARANA 1KG', 0, 0.0000, 10.00, 30, 4.65, '7899901000034',
  '11010010', 215.0000, '2102', 0, 0, 3, 12, 25.80, 215.00, NULL, 0, 0, 0, 0, 0, 0, 0, 0, NULL,
  50, 1.65, 3.38, 50, 7.6, 15.58
);
INSERT INTO compra_item_tmp (
  empr_cod, estacao_cod, compra_cod, compra_item_tmp_cod, prod_cod_deles, prod_cod, unid_cod,
  trib_cod, ipi, ipi_val, outras, emb_qtd, qtd_embs, custo_tot, desconto, ordem,
  prod_descr_fornec, pipi, vipi, frete, prod_margem, preco_novo, bar_cod_fornec, ncm, tot_entra,
  cfop, trib_icms_cst, trib_orig, trib_icms_modbc, trib_icms_picms, trib_icms_vicms,
  trib_icms_vbc, trib_icms_modbcst, trib_icms_pmvast, trib_icms_predbcst, trib_icms_picmsst,
  trib_icms_vbcst, trib_icms_vicmsst, seguro, icms_perc_red, trib_icms_predbc, info_adic, cst_pis,
  ppis, vpis, cst_cofins, pcofins, vcofins
) VALUES (
  1, 10, 2, 3, '455', 8, 7, 5, 0, 0.0000, 0, 10, 1, 195.00, 0, 2, 'FERMENTO BIOLOGICO SECO 500G',
  0, 0.0000, 5.00, 30, 22.23, '7899901000089', '21021090', 200.0000, '2102', 0, 0, 3, 12, 24.00,
  200.00, NULL, 0, 0, 0, 0, 0, 0, 0, 0, NULL, 50, 1.65, 3.22, 50, 7.6, 14.82
);
INSERT INTO compra_item_tmp_precos (empr_cod, estacao_cod, compra_item_tmp_cod, tab_preco_cod, preco) VALUES (1, 10, 2, 1, 4.65);
INSERT INTO compra_item_tmp_precos (empr_cod, estacao_cod, compra_item_tmp_cod, tab_preco_cod, preco) VALUES (1, 10, 2, 2, 4.19);
INSERT INTO compra_item_tmp_precos (empr_cod, estacao_cod, compra_item_tmp_cod, tab_preco_cod, preco) VALUES (1, 10, 2, 3, 3.96);
INSERT INTO compra_item_tmp_precos (empr_cod, estacao_cod, compra_item_tmp_cod, tab_preco_cod, preco) VALUES (1, 10, 3, 1, 22.23);
INSERT INTO compra_item_tmp_precos (empr_cod, estacao_cod, compra_item_tmp_cod, tab_preco_cod, preco) VALUES (1, 10, 3, 2, 20.01);
INSERT INTO compra_item_tmp_precos (empr_cod, estacao_cod, compra_item_tmp_cod, tab_preco_cod, preco) VALUES (1, 10, 3, 3, 18.90);

INSERT INTO compra_item_tmp (
  empr_cod, estacao_cod, compra_cod, compra_item_tmp_cod, prod_cod_deles, prod_cod, unid_cod,
  trib_cod, ipi, ipi_val, outras, emb_qtd, qtd_embs, custo_tot, desconto, ordem,
  prod_descr_fornec, pipi, vipi, frete, prod_margem, preco_novo, bar_cod_fornec, ncm, tot_entra,
  cfop, trib_icms_cst, trib_orig, trib_icms_modbc, trib_icms_picms, trib_icms_vicms,
  trib_icms_vbc, trib_icms_modbcst, trib_icms_pmvast, trib_icms_predbcst, trib_icms_picmsst,
  trib_icms_vbcst, trib_icms_vicmsst, seguro, icms_perc_red, trib_icms_predbc, info_adic, cst_pis,
  ppis, vpis, cst_cofins, pcofins, vcofins
) VALUES (
  1, 10, 3, 4, '1001', 6, 1, 2, 0, 0.0000, 0, 12, 2, 104.40, 0, 1, 'LEITE UHT INTEGRAL 1L', 0,
  0.0000, 0, 25, 5.43, NULL, '04012010', 104.4000, '5202', 0, 0, 3, 7, 7.31, 104.40, NULL, 0, 0,
  0, 0, 0, 0, 0, 0, 'Devolucao parcial: embalagens avariadas no transporte', 50, 1.65, 1.72, 50,
  7.6, 7.93
);
INSERT INTO compra_item_tmp_precos (empr_cod, estacao_cod, compra_item_tmp_cod, tab_preco_cod, preco) VALUES (1, 10, 4, 1, 5.43);
INSERT INTO compra_item_tmp_precos (empr_cod, estacao_cod, compra_item_tmp_cod, tab_preco_cod, preco) VALUES (1, 10, 4, 2, 4.89);
INSERT INTO compra_item_tmp_precos (empr_cod, estacao_cod, compra_item_tmp_cod, tab_preco_cod, preco) VALUES (1, 10, 4, 3, 4.62);

INSERT INTO compra_item_tmp (
  empr_cod, estacao_cod, compra_cod, compra_item_tmp_cod, prod_cod_deles, prod_cod, unid_cod,
  trib_cod, ipi, ipi_val, outras, emb_qtd, qtd_embs, custo_tot, desconto, ordem,
  prod_descr_fornec, pipi, vipi, frete, prod_margem, preco_novo, bar_cod_fornec, ncm, tot_entra,
  cfop, trib_icms_cst, trib_orig, trib_icms_modbc, trib_icms_picms, trib_icms_vicms,
  trib_icms_vbc, trib_icms_modbcst, trib_icms_pmvast, trib_icms_predbcst, trib_icms_picmsst,
  trib_icms_vbcst, trib_icms_vicmsst, seguro, icms_perc_red, trib_icms_predbc, info_adic, cst_pis,
  ppis, vpis, cst_cofins, pcofins, vcofins
) VALUES (
  1, 10, 4, 5, 'TJ-ARZ5', 1, 7, 2, 0, 0.0000, 0, 6, 3, 412.20, 0, 1, 'ARROZ T1 TIO JOCA 5KG FD 6',
  0, 0.0000, 0, 25, 26.62, NULL, '10063021', 412.2000, '1102', 0, 0, 3, 7, 28.85, 412.20, NULL, 0,
  0, 0, 0, 0, 0, 0, 0, NULL, 50, 1.65, 6.80, 50, 7.6, 31.33
);
INSERT INTO compra_item_tmp (
  empr_cod, estacao_cod, compra_cod, compra_item_tmp_cod, prod_cod_deles, prod_cod, unid_cod,
  trib_cod, ipi, ipi_val, outras, emb_qtd, qtd_embs, custo_tot, desconto, ordem,
  prod_descr_fornec, pipi, vipi, frete, prod_margem, preco_novo, bar_cod_fornec, ncm, tot_entra,
  cfop, trib_icms_cst, trib_orig, trib_icms_modbc, trib_icms_picms, trib_icms_vicms,
  trib_icms_vbc, trib_icms_modbcst, trib_icms_pmvast, trib_icms_predbcst, trib_icms_picmsst,
  trib_icms_vbcst, trib_icms_vicmsst, seguro, icms_perc_red, trib_icms_predbc, info_adic, cst_pis,
  ppis, vpis, cst_cofins, pcofins, vcofins
) VALUES (
  1, 10, 4, 6, 'TJ-FJC1', 2, 7, 2, 0, 0.0000, 0, 10, 3, 222.00, 0, 2,
  'FEIJAO CARIOCA T1 TIO JOCA 1KG FD 10', 0, 0.0000, 0, 30, 8.94, NULL, '07133319', 222.0000,
  '1102', 0, 0, 3, 7, 15.54, 222.00, NULL, 0, 0, 0, 0, 0, 0, 0, 0, NULL, 50, 1.65, 3.66, 50, 7.6,
  16.87
);
INSERT INTO compra_item_tmp (
  empr_cod, estacao_cod, compra_cod, compra_item_tmp_cod, prod_cod_deles, prod_cod, unid_cod,
  trib_cod, ipi, ipi_val, outras, emb_qtd, qtd_embs, custo_tot, desconto, ordem,
  prod_descr_fornec, pipi, vipi, frete, prod_margem, preco_novo, bar_cod_fornec, ncm, tot_entra,
  cfop, trib_icms_cst, trib_orig, trib_icms_modbc, trib_icms_picms, trib_icms_vicms,
  trib_icms_vbc, trib_icms_modbcst, trib_icms_pmvast, trib_icms_predbcst, trib_icms_picmsst,
  trib_icms_vbcst, trib_icms_vicmsst, seguro, icms_perc_red, trib_icms_predbc, info_adic, cst_pis,
  ppis, vpis, cst_cofins, pcofins, vcofins
) VALUES (
  1, 10, 4, 7, 'TJ-ACR1', 4, 7, 2, 0, 0.0000, 0, 10, 2, 79.00, 0, 3,
  'ACUCAR REFINADO TIO JOCA 1KG FD 10', 0, 0.0000, 0, 30, 4.77, NULL, '17019900', 79.0000, '1102',
  0, 0, 3, 7, 5.53, 79.00, NULL, 0, 0, 0, 0, 0, 0, 0, 0, NULL, 50, 1.65, 1.30, 50, 7.6, 6.00
);
INSERT INTO compra_item_tmp (
  empr_cod, estacao_cod, compra_cod, compra_item_tmp_cod, prod_cod_deles, prod_cod, unid_cod,
  trib_cod, ipi, ipi_val, outras, emb_qtd, qtd_embs, custo_tot, desconto, ordem,
  prod_descr_fornec, pipi, vipi, frete, prod_margem, preco_novo, bar_cod_fornec, ncm, tot_entra,
  cfop, trib_icms_cst, trib_orig, trib_icms_modbc, trib_icms_picms, trib_icms_vicms,
  trib_icms_vbc, trib_icms_modbcst, trib_icms_pmvast, trib_icms_predbcst, trib_icms_picmsst,
  trib_icms_vbcst, trib_icms_vicmsst, seguro, icms_perc_red, trib_icms_predbc, info_adic, cst_pis,
  ppis, vpis, cst_cofins, pcofins, vcofins
) VALUES (
  1, 10, 4, 8, 'SA-500', 5, 7, 5, 0, 0.0000, 0, 10, 1, 148.00, 4.00, 4,
  'CAFE SERRA ALTA TRAD 500G CX 10', 0, 0.0000, 0, 35, 15.94, NULL, '09012100', 144.0000, '1102',
  0, 0, 3, 18, 25.92, 144.00, NULL, 0, 0, 0, 0, 0, 0, 0, 0, NULL, 50, 1.65, 2.38, 50, 7.6, 10.94
);
INSERT INTO compra_item_tmp (
  empr_cod, estacao_cod, compra_cod, compra_item_tmp_cod, prod_cod_deles, prod_cod, unid_cod,
  trib_cod, ipi, ipi_val, outras, emb_qtd, qtd_embs, custo_tot, desconto, ordem,
  prod_descr_fornec, pipi, vipi, frete, prod_margem, preco_novo, bar_cod_fornec, ncm, tot_entra,
  cfop, trib_icms_cst, trib_orig, trib_icms_modbc, trib_icms_picms, trib_icms_vicms,
  trib_icms_vbc, trib_icms_modbcst, trib_icms_pmvast, trib_icms_predbcst, trib_icms_picmsst,
  trib_icms_vbcst, trib_icms_vicmsst, seguro, icms_perc_red, trib_icms_predbc, info_adic, cst_pis,
  ppis, vpis, cst_cofins, pcofins, vcofins
) VALUES (
  1, 10, 4, 9, 'RB-COLA2', 14, 1, 6, 4, 2.9280, 0, 6, 2, 73.20, 0, 5, 'REFRIG COLA 2L PET FD 6',
  4, 2.9280, 0, 35, 7.08, NULL, '22021000', 82.1280, '1403', 10, 0, 3, 18, 13.18, 73.20, 4, 40, 0,
  18, 106.58, 6.00, 0, 0, 0, NULL, 50, 1.65, 1.21, 50, 7.6, 5.56
);
INSERT INTO compra_item_tmp_precos (empr_cod, estacao_cod, compra_item_tmp_cod, tab_preco_cod, preco) VALUES (1, 10, 5, 1, 26.62);
INSERT INTO compra_item_tmp_precos (empr_cod, estacao_cod, compra_item_tmp_cod, tab_preco_cod, preco) VALUES (1, 10, 5, 2, 23.96);
INSERT INTO compra_item_tmp_precos (empr_cod, estacao_cod, compra_item_tmp_cod, tab_preco_cod, preco) VALUES (1, 10, 5, 3, 22.63);
INSERT INTO compra_item_tmp_precos (empr_cod, estacao_cod, compra_item_tmp_cod, tab_preco_cod, preco) VALUES (1, 10, 6, 1, 8.94);
INSERT INTO compra_item_tmp_precos (empr_cod, estacao_cod, compra_item_tmp_cod, tab_preco_cod, preco) VALUES (1, 10, 6, 2, 8.05);
INSERT INTO compra_item_tmp_precos (empr_cod, estacao_cod, compra_item_tmp_cod, tab_preco_cod, preco) VALUES (1, 10, 6, 3, 7.60);
INSERT INTO compra_item_tmp_precos (empr_cod, estacao_cod, compra_item_tmp_cod, tab_preco_cod, preco) VALUES (1, 10, 7, 1, 4.77);
INSERT INTO compra_item_tmp_precos (empr_cod, estacao_cod, compra_item_tmp_cod, tab_preco_cod, preco) VALUES (1, 10, 7, 2, 4.30);
INSERT INTO compra_item_tmp_precos (empr_cod, estacao_cod, compra_item_tmp_cod, tab_preco_cod, preco) VALUES (1, 10, 7, 3, 4.06);
INSERT INTO compra_item_tmp_precos (empr_cod, estacao_cod, compra_item_tmp_cod, tab_preco_cod, preco) VALUES (1, 10, 8, 1, 15.94);
INSERT INTO compra_item_tmp_precos (empr_cod, estacao_cod, compra_item_tmp_cod, tab_preco_cod, preco) VALUES (1, 10, 8, 2, 14.35);
INSERT INTO compra_item_tmp_precos (empr_cod, estacao_cod, compra_item_tmp_cod, tab_preco_cod, preco) VALUES (1, 10, 8, 3, 13.55);
INSERT INTO compra_item_tmp_precos (empr_cod, estacao_cod, compra_item_tmp_cod, tab_preco_cod, preco) VALUES (1, 10, 9, 1, 7.08);
INSERT INTO compra_item_tmp_precos (empr_cod, estacao_cod, compra_item_tmp_cod, tab_preco_cod, preco) VALUES (1, 10, 9, 2, 6.38);
INSERT INTO compra_item_tmp_precos (empr_cod, estacao_cod, compra_item_tmp_cod, tab_preco_cod, preco) VALUES (1, 10, 9, 3, 6.02);

INSERT INTO compra_item_tmp (
  empr_cod, estacao_cod, compra_cod, compra_item_tmp_cod, prod_cod_deles, prod_cod, unid_cod,
  trib_cod, ipi, ipi_val, outras, emb_qtd, qtd_embs, custo_tot, desconto, ordem,
  prod_descr_fornec, pipi, vipi, frete, prod_margem, preco_novo, bar_cod_fornec, ncm, tot_entra,
  cfop, trib_icms_cst, trib_orig, trib_icms_modbc, trib_icms_picms, trib_icms_vicms,
  trib_icms_vbc, trib_icms_modbcst, trib_icms_pmvast, trib_icms_predbcst, trib_icms_picmsst,
  trib_icms_vbcst, trib_icms_vicmsst, seguro, icms_perc_red, trib_icms_predbc, info_adic, cst_pis,
  ppis, vpis, cst_cofins, pcofins, vcofins
) VALUES (
  1, 10, 5, 10, NULL, 10, 3, 2, 0, 0.0000, 0, 1, 30, 186.00, 0, 1, NULL, 0, 0.0000, 0, 120, 13.64,
  NULL, '19059090', 186.0000, '1926', 0, 0, NULL, 0, 0.00, 0, NULL, 0, 0, 0, 0, 0, 0, 0, 0, NULL,
  50, 1.65, 3.07, 50, 7.6, 14.14
);
INSERT INTO compra_item_tmp (
  empr_cod, estacao_cod, compra_cod, compra_item_tmp_cod, prod_cod_deles, prod_cod, unid_cod,
  trib_cod, ipi, ipi_val, outras, emb_qtd, qtd_embs, custo_tot, desconto, ordem,
  prod_descr_fornec, pipi, vipi, frete, prod_margem, preco_novo, bar_cod_fornec, ncm, tot_entra,
  cfop, trib_icms_cst, trib_orig, trib_icms_modbc, trib_icms_picms, trib_icms_vicms,
  trib_icms_vbc, trib_icms_modbcst, trib_icms_pmvast, trib_icms_predbcst, trib_icms_picmsst,
  trib_icms_vbcst, trib_icms_vicmsst, seguro, icms_perc_red, trib_icms_predbc, info_adic, cst_pis,
  ppis, vpis, cst_cofins, pcofins, vcofins
) VALUES (
  1, 10, 5, 11, NULL, 11, 1, 5, 0, 0.0000, 0, 1, 10, 115.00, 0, 2, NULL, 0, 0.0000, 0, 100, 23.00,
  NULL, '19059090', 115.0000, '1926', 0, 0, NULL, 0, 0.00, 0, NULL, 0, 0, 0, 0, 0, 0, 0, 0, NULL,
  50, 1.65, 1.90, 50, 7.6, 8.74
);
INSERT INTO compra_item_tmp_precos (empr_cod, estacao_cod, compra_item_tmp_cod, tab_preco_cod, preco) VALUES (1, 10, 10, 1, 13.64);
INSERT INTO compra_item_tmp_precos (empr_cod, estacao_cod, compra_item_tmp_cod, tab_preco_cod, preco) VALUES (1, 10, 10, 2, 12.28);
INSERT INTO compra_item_tmp_precos (empr_cod, estacao_cod, compra_item_tmp_cod, tab_preco_cod, preco) VALUES (1, 10, 10, 3, 11.60);
INSERT INTO compra_item_tmp_precos (empr_cod, estacao_cod, compra_item_tmp_cod, tab_preco_cod, preco) VALUES (1, 10, 11, 1, 23.00);
INSERT INTO compra_item_tmp_precos (empr_cod, estacao_cod, compra_item_tmp_cod, tab_preco_cod, preco) VALUES (1, 10, 11, 2, 20.70);
INSERT INTO compra_item_tmp_precos (empr_cod, estacao_cod, compra_item_tmp_cod, tab_preco_cod, preco) VALUES (1, 10, 11, 3, 19.55);

INSERT INTO compra_item_tmp (
  empr_cod, estacao_cod, compra_cod, compra_item_tmp_cod, prod_cod_deles, prod_cod, unid_cod,
  trib_cod, ipi, ipi_val, outras, emb_qtd, qtd_embs, custo_tot, desconto, ordem,
  prod_descr_fornec, pipi, vipi, frete, prod_margem, preco_novo, bar_cod_fornec, ncm, tot_entra,
  cfop, trib_icms_cst, trib_orig, trib_icms_modbc, trib_icms_picms, trib_icms_vicms,
  trib_icms_vbc, trib_icms_modbcst, trib_icms_pmvast, trib_icms_predbcst, trib_icms_picmsst,
  trib_icms_vbcst, trib_icms_vicmsst, seguro, icms_perc_red, trib_icms_predbc, info_adic, cst_pis,
  ppis, vpis, cst_cofins, pcofins, vcofins
) VALUES (
  2, 10, 6, 12, '1001', 6, 1, 2, 0, 0.0000, 0, 12, 4, 215.04, 0, 1, 'LEITE UHT INTEGRAL 1L', 0,
  0.0000, 0, 25, 4.92, NULL, '04012010', 215.0400, '2102', 0, 0, 3, 12, 25.80, 215.04, NULL, 0, 0,
  0, 0, 0, 0, 0, 0, NULL, 50, 1.65, 3.55, 50, 7.6, 16.34
);
INSERT INTO compra_item_tmp (
  empr_cod, estacao_cod, compra_cod, compra_item_tmp_cod, prod_cod_deles, prod_cod, unid_cod,
  trib_cod, ipi, ipi_val, outras, emb_qtd, qtd_embs, custo_tot, desconto, ordem,
  prod_descr_fornec, pipi, vipi, frete, prod_margem, preco_novo, bar_cod_fornec, ncm, tot_entra,
  cfop, trib_icms_cst, trib_orig, trib_icms_modbc, trib_icms_picms, trib_icms_vicms,
  trib_icms_vbc, trib_icms_modbcst, trib_icms_pmvast, trib_icms_predbcst, trib_icms_picmsst,
  trib_icms_vbcst, trib_icms_vicmsst, seguro, icms_perc_red, trib_icms_predbc, info_adic, cst_pis,
  ppis, vpis, cst_cofins, pcofins, vcofins
) VALUES (
  2, 10, 6, 13, '2040', 7, 1, 5, 0, 0.0000, 0, 24, 1, 220.08, 0, 2, 'MANTEIGA C/ SAL 200G', 0,
  0.0000, 0, 35, 10.89, NULL, '04051000', 220.0800, '2102', 0, 0, 3, 12, 26.41, 220.08, NULL, 0,
  0, 0, 0, 0, 0, 0, 0, NULL, 50, 1.65, 3.63, 50, 7.6, 16.73
);
INSERT INTO compra_item_tmp_precos (empr_cod, estacao_cod, compra_item_tmp_cod, tab_preco_cod, preco) VALUES (2, 10, 12, 1, 4.92);
INSERT INTO compra_item_tmp_precos (empr_cod, estacao_cod, compra_item_tmp_cod, tab_preco_cod, preco) VALUES (2, 10, 12, 2, 4.43);
INSERT INTO compra_item_tmp_precos (empr_cod, estacao_cod, compra_item_tmp_cod, tab_preco_cod, preco) VALUES (2, 10, 12, 3, 4.19);
INSERT INTO compra_item_tmp_precos (empr_cod, estacao_cod, compra_item_tmp_cod, tab_preco_cod, preco) VALUES (2, 10, 13, 1, 10.89);
INSERT INTO compra_item_tmp_precos (empr_cod, estacao_cod, compra_item_tmp_cod, tab_preco_cod, preco) VALUES (2, 10, 13, 2, 9.81);
INSERT INTO compra_item_tmp_precos (empr_cod, estacao_cod, compra_item_tmp_cod, tab_preco_cod, preco) VALUES (2, 10, 13, 3, 9.26);

-- Movements of the posted notes 2 and 3, and their links.
INSERT INTO est_mov (
  empr_cod, estacao_cod, est_mov_cod, tipo, prod_cod, nitem, qtd, custo_tot, custo, preco_unit,
  desconto, cancelado, dth_cri, trat_icms, origem_merc, icms_bc_mod, icms_bc_val, icms_val,
  trib_cod, trib_perc, preco_atual, cfop, info_adic, trib_icms_cst, trib_orig, trib_icms_modbc,
  trib_icms_picms, trib_icms_vicms, trib_icms_vbc, frete, cst_pis, ppis, vpis, cst_cofins,
  pcofins, vcofins
) VALUES (
  1, 10, 1, 'E', 3, 1, 50.000, 205.00, 4.1000, 4.1000, 0, 'N', '2026-10-21 09:15:22', 0, 0, 3,
  215.00, 25.80, 2, 12, 5.33, '2102', NULL, 0, 0, 3, 12, 25.80, 215.00, 10.00, 50, 1.65, 3.38, 50,
  7.6, 15.58
);
INSERT INTO est_mov (
  empr_cod, estacao_cod, est_mov_cod, tipo, prod_cod, nitem, qtd, custo_tot, custo, preco_unit,
  desconto, cancelado, dth_cri, trat_icms, origem_merc, icms_bc_mod, icms_bc_val, icms_val,
  trib_cod, trib_perc, preco_atual, cfop, info_adic, trib_icms_cst, trib_orig, trib_icms_modbc,
  trib_icms_picms, trib_icms_vicms, trib_icms_vbc, frete, cst_pis, ppis, vpis, cst_cofins,
  pcofins, vcofins
) VALUES (
  1, 10, 2, 'E', 8, 2, 10.000, 195.00, 19.5000, 19.5000, 0, 'N', '2026-10-21 09:15:22', 0, 0, 3,
  200.00, 24.00, 5, 12, 25.35, '2102', NULL, 0, 0, 3, 12, 24.00, 200.00, 5.00, 50, 1.65, 3.22, 50,
  7.6, 14.82
);
INSERT INTO est_mov (
  empr_cod, estacao_cod, est_mov_cod, tipo, prod_cod, nitem, qtd, custo_tot, custo, preco_unit,
  desconto, cancelado, dth_cri, trat_icms, origem_merc, icms_bc_mod, icms_bc_val, icms_val,
  trib_cod, trib_perc, preco_atual, cfop, info_adic, trib_icms_cst, trib_orig, trib_icms_modbc,
  trib_icms_picms, trib_icms_vicms, trib_icms_vbc, frete, cst_pis, ppis, vpis, cst_cofins,
  pcofins, vcofins
) VALUES (
  1, 10, 3, 'S', 6, 1, -24.000, 104.40, 4.3500, 4.3500, 0, 'N', '2026-11-12 14:40:05', 0, 0, 3,
  104.40, 7.31, 2, 7, 5.43, '5202', 'Devolucao parcial: embalagens avariadas no transporte', 0, 0,
  3, 7, 7.31, 104.40, 0, 50, 1.65, 1.72, 50, 7.6, 7.93
);
INSERT INTO compra_est_mov (empr_cod, estacao_cod, compra_cod, est_mov_empr_cod, est_mov_estacao_cod, est_mov_cod) VALUES (1, 1, 2, 1, 10, 1);
INSERT INTO compra_est_mov (empr_cod, estacao_cod, compra_cod, est_mov_empr_cod, est_mov_estacao_cod, est_mov_cod) VALUES (1, 1, 2, 1, 10, 2);
INSERT INTO compra_est_mov (empr_cod, estacao_cod, compra_cod, est_mov_empr_cod, est_mov_estacao_cod, est_mov_cod) VALUES (1, 1, 3, 1, 10, 3);

INSERT INTO log_alt (log_alt_cod, empr_cod, estacao_cod, dth, usuario, tabela, chave, descr) VALUES (1, 1, 1, '2026-11-19 08:47:10', 'ADMIN', 'COMPRA', '1-1-4', 'Nota 001-0000004: data de saida alterada de 17/11/26 18:00 para 18/11/26 07:45');

-- ---------------------------------------------------------------------------
INSERT INTO compra_item_tmp (
  empr_cod, estacao_cod, compra_cod, compra_item_tmp_cod, prod_cod_deles, prod_cod, unid_cod,
  trib_cod, ipi, ipi_val, outras, emb_qtd, qtd_embs, custo_tot, desconto, ordem,
  prod_descr_fornec, pipi, vipi, frete, prod_margem, preco_novo, bar_cod_fornec, ncm, tot_entra,
  cfop, trib_icms_cst, trib_orig, trib_icms_modbc, trib_icms_picms, trib_icms_vicms,
  trib_icms_vbc, trib_icms_modbcst, trib_icms_pmvast, trib_icms_predbcst, trib_icms_picmsst,
  trib_icms_vbcst, trib_icms_vicmsst, seguro, icms_perc_red, trib_icms_predbc, info_adic, cst_pis,
  ppis, vpis, cst_cofins, pcofins, vcofins
) VALUES (
  1, 10, 7, 14, '1001', 6, 1, 2, 0, 0.0000, 0, 12, 2, 104.40, 0, 1, 'LEITE UHT INTEGRAL 1L', 0,
  0.0000, 0, 25, 5.43, NULL, '04012010', 104.4000, '5915', 0, 0, 3, 7, 7.31, 104.40, NULL, 0, 0,
  0, 0, 0, 0, 0, 0, NULL, 50, 1.65, 1.72, 50, 7.6, 7.93
);

-- Generators past the highest code used
-- ---------------------------------------------------------------------------

SET GENERATOR compra_g TO 7;
SET GENERATOR compra_item_tmp_g TO 14;
SET GENERATOR est_mov_g TO 3;
SET GENERATOR prod_custo_g TO 18;
SET GENERATOR prod_preco_g TO 16;
SET GENERATOR log_alt_g TO 1;
