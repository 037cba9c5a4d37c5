import assert from 'node:assert/strict'
import { it } from 'node:test'

// What the inputs of functions can hold in the sample company.
const VALUES = {
  当前用户: ['weiruoxi'], 岗位关系图: ['', '行政汇报', '无此图'], 用户号: ['linjuan', 'nobody'], 用户号集: ['linjuan,matao'],
  岗位号: ['YS-0201', 'P02'], ParentCode: ['YS-02', 'YS'], 域ID: [3, '4'], 域代码: ['Y010101'], 域节点代码: ['\\1\\2\\3\\'],
  域名称: ['上海分公司', '没有'], 返回内容: ['Code', 'OID'], 查询范围: ['域范围', '所属域'], 是否包含下级域: [true, 'false'],
  查询条件: ["Code like 'Y01%'", ''],
}

/** Calls of a function: with the first values, then with each input changed. */
function inputsOf(described) {
  const first = Object.fromEntries(described.in.map(({ name }) => [name, VALUES[name][0]]))
  const others = described.in.flatMap(({ name }) => VALUES[name].slice(1).map((value) => ({ ...first, [name]: value })))
  return [first, ...others]
}

export function functions(services) {
  it('are those of the command line, in their order', async () => {
    const { body } = await services.ask('listFunctions')
    const expected = services.functions.map(({ kind, ...described }) => described)
    assert.equal(expected.length, 62)
    assert.deepEqual(body.functions.map(({ pastesText, allowed, ...described }) => described), expected)
  })

  it('are described one by one as in the list', async () => {
    const { body } = await services.ask('listFunctions')
    for (const described of body.functions)
      assert.deepEqual((await services.ask('describeFunction', { name: described.name })).body, described)
  })

  it('that paste texts are marked, and allowed to a token for all only when it names them', async () => {
    const { body: { functions } } = await services.ask('listFunctions')
    assert.ok(services.pasting.includes('GetDomainInfo') && !services.pasting.includes('GetCurDomainID'))
    for (const { name, pastesText, allowed } of functions) assert.equal(allowed, !pastesText, name)
    const { body: { functions: named } } = await services.ask('listFunctions', {}, { token: services.pastingToken })
    for (const { name, pastesText, allowed } of named) assert.equal(allowed, pastesText, name)
  })

  /** Calls a function over HTTP and on the command line, which have to answer the same. Gives its outputs, if any. */
  const compared = async (name, inputs, login) => {
    const words = Object.entries(inputs).map(([input, value]) => `${input}=${value}`)
    const expected = services.command('call', name, ...words, '--user', login)
    const { status, body } = await services.call(name, inputs, login)
    const what = `${name} ${words.join(' ')} of ${login}: ${JSON.stringify(expected)} ${JSON.stringify(body)}`
    assert.equal(status, expected.error === undefined ? 200 : 422, what)
    if (status === 200) assert.deepEqual([body.result, body.out], [expected.result, expected.out], what)
    return body.out
  }

  it('answer over HTTP what they answer on the command line', async () => {
    const answers = []
    for (const described of services.functions)
      for (const inputs of inputsOf(described)) answers.push(await compared(described.name, inputs, 'linjuan'))
    const told = answers.filter((out) => out && Object.values(out).some((value) => value !== '')).length
    const failed = answers.filter((out) => out === undefined).length
    assert.ok(answers.length > 80 && told > 50 && failed > 0, `of ${answers.length} calls ${told} told something, ${failed} failed`)
  })

  it('answer to each login what it may know', async () => {
    const answers = []
    for (const login of ['matao', 'wuzhiqiang', 'admin'])
      for (const name of ['GetAuthDomainIDss', 'GetCurUserType']) answers.push((await compared(name, {}, login)).Result)
    assert.ok(new Set(answers).size > 3, answers.join('; '))
  })

  it('answer for the domain that is named', async () => {
    const domainOf = async (more) => (await services.ask('callFunction', { name: 'GetCurDomainID' }, { body: { login: 'linjuan', ...more } })).body.out.Result
    for (const domain of [3, 1, -1]) assert.equal(await domainOf({ domain }), String(domain))
    await domainOf({ domain: 3 })
    assert.equal(await domainOf({}), '-1', 'the domain of the call before is forgotten')
  })

  it('say what they would have shown, and which inputs they do not declare', async () => {
    const { body } = await services.call('GetCurUserType', { 多余: 'x', more: 1 }, 'linjuan')
    assert.deepEqual([...body.undeclared].sort(), ['more', '多余'])
    assert.equal((await services.call('GetCurUserType', {}, 'linjuan')).body.undeclared, undefined)
  })

  it('stop early when an input is missing', async () => {
    const { status, body } = await services.call('CheckDomainAuthByNodeCode', {}, 'linjuan')
    const expected = services.command('call', 'CheckDomainAuthByNodeCode', '--user', 'linjuan')
    assert.deepEqual([status, body.result, body.out], [200, expected.result, expected.out])
  })

  it('take texts of any kind byte for byte', async () => {
    for (const text of ["o'neil", 'a"b\\c', 'x\ny\tz', '𠮷野家', '%s %d {}', '; drop table STUsers --', "\\') or 1=1 --"])
      await compared('CheckDomainAuthByName', { 域名称: text }, 'matao')
  })

  const needsAccount = services.engine.isServer
  it(`that paste texts ${needsAccount ? 'need an account of their own' : 'need no account'}`, async () => {
    const server = await services.serve()
    try {
      const { status, body } = await services.call('GetDomainInfo', { 返回内容: 'Code', 查询条件: "Code = 'Y01'" }, 'linjuan', { server })
      assert.equal(status, needsAccount ? 403 : 200)
      if (needsAccount) assert.match(body.detail, /--restricted-data/)
    } finally {
      await server.stop()
    }
  })

  it('need no login in the body when the token is for exactly one', async () => {
    const token = services.token({ logins: 'matao' })
    const call = (options) => services.ask('callFunction', { name: 'GetCurUserType' }, { body: { in: {} }, ...options })
    assert.deepEqual((await call({ token })).body.out, services.command('call', 'GetCurUserType', '--user', 'matao').out)
    assert.equal((await call({ token: services.token({ logins: 'matao,linjuan' }) })).status, 400)
    assert.equal((await call({})).status, 400)
  })

  it('fail with their message, in the language that is asked for', async () => {
    const inputs = { 返回内容: 'NoSuchColumn', 查询范围: '域范围', 是否包含下级域: true }
    const { status, body } = await services.call('GetDomainUsers', inputs, 'matao')
    const words = Object.entries(inputs).map(([input, value]) => `${input}=${value}`)
    const { error } = services.command('call', 'GetDomainUsers', ...words, '--user', 'matao')
    assert.equal(status, 422)
    assert.ok(body.detail.includes(error), body.detail)
    const english = await services.call('GetDomainUsers', inputs, 'matao', { headers: { 'accept-language': 'en-GB, zh;q=0.5' } })
    assert.match(english.body.detail, /^[\x20-\x7e]+$/)
  })

  it('that are not known are told apart from none by no token without functions', async () => {
    for (const name of ['NoSuchFunction', 'getcuruserType', 'GetCurUserType ', '域管理', '../functions', 'a/b', '%', "'", '\u202e']) {
      assert.equal((await services.ask('describeFunction', { name })).status, 404, name)
      assert.equal((await services.ask('callFunction', { name }, { body: { login: 'linjuan' } })).status, 404, name)
    }
    const token = services.token({ functions: '' })
    const known = await services.ask('describeFunction', { name: 'GetCurUserType' }, { token })
    const unknown = await services.ask('describeFunction', { name: 'NoSuchFunction' }, { token })
    assert.equal(known.status, 403)
    assert.deepEqual(unknown.body, known.body)
  })
}
