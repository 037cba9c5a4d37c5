import assert from 'node:assert/strict'
import { it } from 'node:test'
import { assertTellsNothingOfTheInside } from '../support/inside.mjs'

export function addresses(services) {
  const authorization = () => `Bearer ${services.all}`
  const refusedWith = async (status, id, given, options = {}) => {
    const what = `${id} ${JSON.stringify(given)} ${options.target ?? ''}`
    const reply = await services.ask(id, given, options)
    assert.equal(reply.status, status, `${what}: ${reply.text}`)
    assertTellsNothingOfTheInside(reply.text, what)
  }

  it('say which methods they take when they are asked with another', async () => {
    const operations = [...services.known.operations.values()]
    for (const { path } of operations) {
      const taken = operations.filter((one) => one.path === path).map((one) => one.method)
      const target = path.replace('{name}', 'GetCurUserType').replace('{login}', 'linjuan').replace('{objectID}', '31')
      for (const method of ['DELETE', 'PUT', 'PATCH', 'OPTIONS', 'POST'].filter((one) => !taken.includes(one))) {
        const headers = { authorization: authorization(), 'content-length': 0 }
        const reply = await services.server.request(method, target, { headers })
        assert.equal(reply.status, 405, `${method} ${target}`)
        assert.deepEqual(services.known.faults({ $ref: '#/components/schemas/Problem' }, reply.body), [])
        const told = reply.headers.allow.split(', ')
        assert.ok(taken.every((one) => told.includes(one)), `${method} ${target}: ${told}`)
      }
    }
  })

  it('answer HEAD as GET, without the body', async () => {
    const headers = { authorization: authorization() }
    const reply = await services.server.request('HEAD', '/api/functions', { headers })
    const length = Buffer.byteLength((await services.server.get('/api/functions', headers)).text)
    assert.deepEqual([reply.status, reply.text, reply.headers['content-length']], [200, '', String(length)])
  })

  it('that lead nowhere are refused', async () => {
    const paths = ['/api', '/api/', '/api/functions/', '/api/functions/GetCurUserType/x', '/api/users', '/api/users/', '/api/users/linjuan',
      '/api/users/linjuan/', '/api/users/linjuan/menus/', '/api/users//menus', '/api/users/linjuan/Menus', '/api/users/a/b/menus',
      '/api/objects', '/api/objects/31', '/api/objects//holders', '/api/functions/../users/linjuan/menus', '/API/functions',
      '//api/functions', '/api/./functions', '/api/openapi.json/x', '/api/openapi']
    for (const path of paths) {
      const reply = await services.server.get(path, { authorization: authorization() })
      assert.equal(reply.status, 404, path)
      assertTellsNothingOfTheInside(reply.text, path)
    }
  })

  it('with names that are no text are refused', async () => {
    for (const name of ['%00', 'a%00b', '%', '%2', '%zz', '%ff', '%c0%af', '%ed%a0%80', '%f8%88%80%80%80', 'linjuan%00', 'a%0ab']) {
      await refusedWith(404, 'listMenus', {}, { target: `/api/users/${name}/menus` })
      await refusedWith(404, 'describeFunction', {}, { target: `/api/functions/${name}` })
      await refusedWith(400, 'getRight', {}, { target: `/api/users/linjuan/rights?objectID=31&operation=${name}` })
      await refusedWith(400, 'listDenied', {}, { target: `/api/users/linjuan/denied?type=${name}&objectID=50` })
    }
  })

  it('look up names as they are, whatever they mean elsewhere', async () => {
    const names = ['..', '../admin', 'a/b', "' or '1'='1", "admin'--", '%', '*', '${x}', '{{x}}', 'x'.repeat(900), ' linjuan', 'linjuan ',
      'LinJuan', '\u202e', '𠮷']
    const login = 'linjuan'
    for (const name of names) {
      await refusedWith(404, 'listMenus', { login: name })
      await refusedWith(404, 'getRight', { login, type: '菜单', object: name, operation: 'x' })
      await refusedWith(404, 'getRight', { login, type: name, object: '请假', operation: 'x' })
      assert.equal((await services.ask('getRight', { login, objectID: 34, operation: name })).body.effect, 'notSet', name)
    }
  })

  it('find a login whatever signs it holds', async () => {
    const login = 'o\'neil "x" /%25?#&+; 𠮷'
    services.data.sql(`insert into STUsers (OID, UserID, UserName, uGroup) values (9001, '${login.replace("'", "''")}', 'O''Neil', 0)`)
    try {
      const { status, body } = await services.ask('getRight', { login, objectID: 34, operation: 'a/b &c=%20"' })
      assert.deepEqual([status, body.login, body.operation, body.effect], [200, login, 'a/b &c=%20"', 'notSet'])
      const token = services.token({ logins: 'linjuan' })
      assert.equal((await services.ask('listMenus', { login }, { token })).status, 403)
    } finally {
      services.data.sql('delete from STUsers where OID = 9001')
    }
  })

  it('with logins, types and objects that are not there are refused', async () => {
    await refusedWith(404, 'getRight', { login: 'nobody', objectID: 31, operation: 'x' })
    await refusedWith(404, 'listDenied', { login: 'nobody', type: '单据', objectID: 50 })
    await refusedWith(404, 'listDenied', { login: 'linjuan', type: '单据', object: '无此单据' })
    await refusedWith(404, 'listDenied', { login: 'linjuan', type: '文档', object: '采购申请单' })
    for (const login of ['linjuan', 'thomas.rossi']) await refusedWith(404, 'listDenied', { login, type: '文档', objectID: 50 })
    assert.equal((await services.ask('getRight', { login: 'linjuan', objectID: 999999, operation: 'x' })).body.effect, 'notSet')
  })

  it('without what they need are refused', async () => {
    const rights = ['', '?objectID=31', '?operation=x', '?objectID=31&operation=', '?type=菜单&operation=x', '?object=请假&operation=x',
      '?objectID=&operation=x', '?objectID=x&operation=x', '?objectID=31.0&operation=x', '?objectID=3%201&operation=x',
      '?objectID=-1&operation=x', '?objectID=99999999999999999999&operation=x', '?objectID=31&object=请假&operation=x',
      `?objectID=31&operation=${'x'.repeat(2000)}`]
    for (const query of rights) await refusedWith(400, 'getRight', {}, { target: encoded(`/api/users/linjuan/rights${query}`) })
    const denied = ['', '?type=单据', '?objectID=50', '?object=采购申请单', '?type=&objectID=50', '?type=单据&objectID=50x']
    for (const query of denied) await refusedWith(400, 'listDenied', {}, { target: encoded(`/api/users/linjuan/denied${query}`) })
  })

  it('with parameters that nobody knows are refused', async () => {
    await refusedWith(400, 'listFunctions', {}, { target: '/api/functions?x=1' })
    await refusedWith(400, 'describeFunction', {}, { target: '/api/functions/GetCurUserType?login=linjuan' })
    await refusedWith(400, 'listMenus', {}, { target: '/api/users/linjuan/menus?login=matao' })
  })

  it('tell of a failed function its message, and nothing of the statement or the place', async () => {
    const info = (field, condition) => ['GetDomainInfo', { 返回内容: field, 查询条件: condition }]
    const calls = [['RoleSuperiorAllEx', { 当前用户: 'huwei', 岗位关系图: '行政汇报' }], info('NoSuchColumn', ''), info('Code', "x'"),
      info('Code', 'exists (select 1 from mysql.user)'), info('Code', '1=1); drop table STUsers; --'), info('Code', "1 = (select count(*) from STUsers where Password = 'x') or nosuch")]
    for (const [name, inputs] of calls) {
      const { status, text } = await services.call(name, inputs, 'linjuan')
      assert.equal(status, 422, `${name} ${text}`)
      assertTellsNothingOfTheInside(text, name)
    }
    assert.equal((await services.call('GetCurUserType', {}, 'linjuan')).status, 200)
  })
}

/** With its Chinese letters in escapes; escapes that are there stay. */
const encoded = (target) => encodeURI(target).replaceAll('%25', '%')
